#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "core/result.h"
#include "io/json_output.h"
#include "network/network.h"

// Project files (.kelvro): JSON with the network as texts and its measured data.
//
//   {"version": 1,
//    "network": {"source": "50", "ladder": ["series: L=20n"], "load": "antenna.s1p",
//                "designFrequency": 1e9, "bands": [{"low": 0.9e9, "high": 1.1e9}],
//                "caption": "…"},
//    "snapshots": [{"name": "with lines", "shown": true, "network": {…}}],
//    "data": {"antenna.s1p": {"touchstone": "# HZ S RI R 50\n…", "interpolation": "linear"},
//             "amp.s2p": {"path": "parts/amp.s2p", "checksum": "sha256:…"}}}
//
// Texts name data by the keys of "data": embedded whole, or by a path relative to the project with
// a checksum. Keys that are not known here stay where they are when a project is read and written.

namespace kelvro {

inline constexpr int kProjectVersion = 1;

/// A named variant, kept beside the network to compare with.
struct ProjectSnapshot {
    std::string name;
    Network network;
    bool shown = true;  ///< drawn in chart and plots
    bool operator==(const ProjectSnapshot&) const = default;
};

/// A project as it is worked with.
struct Project {
    Network network;
    std::vector<ProjectSnapshot> snapshots = {};
    /// Data that are written as a path, by name; all others are embedded.
    std::map<std::string, std::filesystem::path> linkedData;
    /// The whole file as read, for the keys of others; empty for a new project.
    Json document = Json::object();
    /// Written by a later version: what is known of it can be looked at, not saved.
    bool readOnly = false;
    std::vector<std::string> messages;  ///< for the user: later versions, data that have changed
};

/// A failure is one line that names the file and the place in it.
Result<Project> ReadProject(const std::filesystem::path& path);

/// Writes the file as a whole; the old one stays where that fails. A read-only project is refused.
Status WriteProject(const std::filesystem::path& path, const Project& project);

/// The text of a project that is to stand in `folder`, which links are relative to.
std::string ProjectText(const Project& project, const std::filesystem::path& folder);
/// A project from its text; `name` is for messages.
Result<Project> ParseProject(const std::string& text, const std::filesystem::path& folder,
                             const std::string& name);

}  // namespace kelvro
