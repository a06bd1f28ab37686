#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/result.h"
#include "io/json_output.h"
#include "network/network.h"
#include "network/tunable.h"

// Project files (.kelvro): JSON with the network as texts and its measured data.
//
//   {"version": 1,
//    "network": {"source": "50", "ladder": ["series: L=20n"], "load": "antenna.s1p",
//                "designFrequency": 1e9, "bands": [{"low": 0.9e9, "high": 1.1e9}],
//                "caption": "…"},
//    "snapshots": [{"name": "with lines", "shown": true, "network": {…}}],
//    "ghost": {"network": {…}},
//    "locked": [{"element": 0, "part": 0, "quantity": "value"}],
//    "markers": [0.95e9],
//    "data": {"antenna.s1p": {"touchstone": "# HZ S RI R 50\n…", "interpolation": "linear"},
//             "amp.s2p": {"path": "parts/amp.s2p", "checksum": "sha256:…",
//                         "ports": 2}}}
//
// Texts name data by the keys of "data": embedded whole, or by a path relative to the project with
// a checksum. Elements and their parts are counted from 0; a quantity is value, angle, length,
// impedance, turns or coupling. Keys that are not known here stay where they are when a project is
// read and written.

namespace kelvro {

inline constexpr int kProjectVersion = 1;

/// A named variant, kept beside the network to compare with.
struct ProjectSnapshot {
    std::string name;
    Network network;
    bool shown = true;  ///< drawn in chart and plots
    bool operator==(const ProjectSnapshot&) const = default;
};

/// What there is to say of data that a project names by their file.
struct DataProblem {
    std::string name;
    std::string what;  ///< "there is no file …", "… has changed since …"
    bool missing;      ///< no samples; else those that the file has now
    bool operator==(const DataProblem&) const = default;
};

/// A project as it is worked with.
struct Project {
    Network network;
    std::vector<ProjectSnapshot> snapshots = {};
    std::optional<Network> ghost = {};  ///< an earlier design that the chart goes on to show
    std::vector<Tunable> locked = {};   ///< of the network, left alone by optimizers
    std::vector<double> markers = {};   ///< Hz, in plots and chart
    /// Data that are written as a path, by name; all others are embedded.
    std::map<std::string, std::filesystem::path> linkedData;
    /// The whole file as read, for the keys of others; empty for a new project.
    Json document = Json::object();
    /// Of the file as it was read, empty for a new project.
    std::string checksum = {};
    /// Written by a later version: what is known of it can be looked at, and saved elsewhere.
    bool readOnly = false;
    std::vector<std::string> messages = {};  ///< for the user: later versions, odd data
    std::vector<DataProblem> dataProblems = {};
};

/// A failure is one line that names the file and the place in it. Data whose file is missing are
/// none: they are there without samples, and stay what the project says of them when it is written.
Result<Project> ReadProject(const std::filesystem::path& path);

/// Writes the file as a whole; the old one stays where that fails. Fails where the file there is
/// one of a later version, which knows more than this one would write.
/// \param known checksum of the file that may be overwritten, empty for none: fails where another
///              one is there. Without it any file may be.
/// \returns the checksum of the file that is there now
Result<std::string> WriteProject(const std::filesystem::path& path, const Project& project,
                                 const std::optional<std::string>& known = {});

/// Is a file what the project, as it was read, had under that name? True where it does not say.
bool IsAsSaved(const Project& project, const std::string& name, const std::filesystem::path& file);

/// The text of a project that is to stand in `folder`, which links are relative to.
std::string ProjectText(const Project& project, const std::filesystem::path& folder);
/// A project from its text; `name` is for messages.
Result<Project> ParseProject(const std::string& text, const std::filesystem::path& folder,
                             const std::string& name);

}  // namespace kelvro
