#include "io/project_file.h"

#include <algorithm>

#include "io/atomic_file.h"
#include "io/known_file.h"
#include "io/project_words.h"
#include "io/touchstone.h"
#include "network/coverage.h"
#include "network/interpolation.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

Json NetworkJson(const Network& network, Json json) {
    if (!json.is_object()) json = Json::object();
    json["source"] = ImpedanceText(network.source);
    json["ladder"] = Json::array();
    for (const LadderElement& element : network.ladder)
        json["ladder"].push_back(ElementText(element));
    json["load"] = ImpedanceText(network.load);
    json["designFrequency"] = network.designFrequency;
    json["bands"] = Json::array();
    for (const FrequencyBand& band : network.bands) {
        json["bands"].push_back({{"low", band.low}, {"high", band.high}});
    }
    if (!network.caption.empty() || json.contains("caption")) json["caption"] = network.caption;
    return json;
}

/// With what others keep in the snapshot of the same name.
Json SnapshotJson(const ProjectSnapshot& snapshot, const Json& known) {
    Json json = Json::object();
    for (const Json& other : known) {
        if (other.is_object() && other.value("name", Json()) == snapshot.name) json = other;
    }
    json["name"] = snapshot.name;
    json["shown"] = snapshot.shown;
    json["network"] = NetworkJson(snapshot.network, json.value("network", Json()));
    return json;
}

/// Gives data names of their own where several have the same one: a file that was measured anew
/// between two snapshots. Texts and keys name data by nothing else.
class NamesApart {
  public:
    using Data = std::shared_ptr<const PortData>;

    explicit NamesApart(Project& project) : project_(project) {
        const auto named = [this](const Data& data) { return apart(data); };
        ReplaceData(project.network, named);
        for (ProjectSnapshot& snapshot : project.snapshots) ReplaceData(snapshot.network, named);
        if (project.ghost) ReplaceData(*project.ghost, named);
    }

  private:
    Data apart(const Data& data) {
        if (!data) return data;
        const auto known = renamed_.find(data);
        if (known != renamed_.end()) return known->second;
        std::string name = data->name;
        for (int i = 2; taken_.contains(name) && !SameContent(*taken_[name], *data); ++i) {
            // A link leads to one of them only.
            project_.linkedData.erase(data->name);
            name = Numbered(data->name, i);
        }
        Data& owner = taken_[name];
        if (!owner) owner = name == data->name ? data : Renamed(*data, name);
        return renamed_[data] = owner;
    }

    static bool SameContent(const PortData& a, const PortData& b) {
        return a.f == b.f && a.s == b.s && a.ports == b.ports && a.reference == b.reference &&
               a.interpolation == b.interpolation;
    }
    static Data Renamed(PortData data, const std::string& name) {
        data.name = name;
        return std::make_shared<const PortData>(std::move(data));
    }
    /// "antenna-2.s1p".
    static std::string Numbered(const std::string& name, int i) {
        const std::filesystem::path path(name);
        const std::string file =
            path.stem().string() + '-' + std::to_string(i) + path.extension().string();
        return (path.parent_path() / file).string();
    }

    Project& project_;
    std::map<std::string, Data> taken_;
    std::map<Data, Data> renamed_;  ///< keeps what it has replaced
};

/// The measured data of a project, each once.
std::vector<std::shared_ptr<const PortData>> DataOf(const Project& project) {
    auto all = DataOf(project.network);
    const auto add = [&all](const Network& network) {
        for (auto& data : DataOf(network)) {
            if (std::ranges::find(all, data) == all.end()) all.push_back(std::move(data));
        }
    };
    for (const ProjectSnapshot& snapshot : project.snapshots) add(snapshot.network);
    if (project.ghost) add(*project.ghost);
    return all;
}

/// With what others keep beside the same address.
Json LockedJson(const Tunable& at, const Json& known) {
    const Json address = {{"element", at.element},
                          {"part", at.part},
                          {"quantity", kQuantityWords[static_cast<std::size_t>(at.quantity)]}};
    Json json = Json::object();
    for (const Json& other : known) {
        const auto same = [&](const auto& member) {
            return other.is_object() && other.value(member.key(), Json()) == member.value();
        };
        bool all = true;
        for (const auto& member : address.items()) all = all && same(member);
        if (all) json = other;
    }
    json.update(address);
    return json;
}

/// Relative where that can be said.
std::string PathFrom(const std::filesystem::path& folder, const std::filesystem::path& file) {
    std::error_code error;
    const auto relative = std::filesystem::relative(file, folder, error);
    return (error || relative.empty() ? file : relative).generic_string();
}

/// An entry of "data", with what others keep there.
Json DataJson(const PortData& data, const Project& project, const std::filesystem::path& folder,
              Json json) {
    if (!json.is_object()) json = Json::object();
    const auto link = project.linkedData.find(data.name);
    const bool linked = link != project.linkedData.end();
    const auto content = linked ? ContentOf(link->second) : std::nullopt;
    // Of data whose file is missing the project goes on to tell where and what it was.
    if (content || data.f.empty()) {
        json.erase("touchstone");
        if (linked) json["path"] = PathFrom(folder, link->second);
        if (!data.f.empty()) json["checksum"] = Checksum(*content);
        json["ports"] = data.ports;
    } else {
        json.erase("path");
        json.erase("checksum");
        json["touchstone"] = TouchstoneText(data, {});
    }
    json["interpolation"] = kInterpolationWords[static_cast<std::size_t>(data.interpolation)];
    return json;
}

}  // namespace

Result<Project> ReadProject(const std::filesystem::path& path) {
    const std::string name = path.filename().string();
    std::error_code error;
    if (!std::filesystem::exists(path, error)) {
        return Status::Failure("there is no file \"" + path.string() + '"');
    }
    const auto size = std::filesystem::file_size(path, error);
    if (!error && size > kLargestProject) {
        return Status::Failure(name + ": too large for a project (64 MB)");
    }
    const auto content = error ? std::nullopt : ContentOf(path);
    if (!content) return Status::Failure("cannot read \"" + path.string() + '"');
    auto project = ParseProject(*content, path.parent_path(), name);
    if (project) project->checksum = Checksum(*content);
    return project;
}

std::string ProjectText(const Project& given, const std::filesystem::path& folder) {
    Project project = given;
    const NamesApart named(project);
    Json document = project.document.is_object() ? project.document : Json::object();
    document["version"] = kProjectVersion;
    document["network"] = NetworkJson(project.network, document.value("network", Json()));
    if (!project.snapshots.empty() || document.contains("snapshots")) {
        const Json known = document.value("snapshots", Json::array());
        document["snapshots"] = Json::array();
        for (const ProjectSnapshot& snapshot : project.snapshots) {
            document["snapshots"].push_back(SnapshotJson(snapshot, known));
        }
    }
    if (project.ghost) {
        const Json ghost = document.value("ghost", Json());
        document["ghost"] = ghost.is_object() ? ghost : Json::object();
        document["ghost"]["network"] =
            NetworkJson(*project.ghost, document["ghost"].value("network", Json()));
    } else {
        document.erase("ghost");
    }
    if (!project.locked.empty() || document.contains("locked")) {
        const Json known = document.value("locked", Json::array());
        document["locked"] = Json::array();
        for (const Tunable& at : project.locked)
            document["locked"].push_back(LockedJson(at, known));
    }
    if (!project.markers.empty() || document.contains("markers"))
        document["markers"] = project.markers;
    const Json known = document.value("data", Json::object());
    document["data"] = Json::object();
    for (const auto& data : DataOf(project)) {
        document["data"][data->name] =
            DataJson(*data, project, folder, known.value(data->name, Json()));
    }
    return JsonText(document);
}

bool IsAsSaved(const Project& project, const std::string& name, const std::filesystem::path& file) {
    const Json entry = project.document.value("data", Json::object()).value(name, Json::object());
    const Json checksum = entry.is_object() ? entry.value("checksum", Json()) : Json();
    const auto content = ContentOf(file);
    return !checksum.is_string() || (content && checksum == Checksum(*content));
}

Result<std::string> WriteProject(const std::filesystem::path& path, const Project& project,
                                 const std::optional<std::string>& known) {
    const auto folder = std::filesystem::absolute(path).parent_path();
    const SavingIn turn(folder);
    if (IsOfLaterVersion(path)) {
        return Status::Failure(path.filename().string() +
                               " was written by a later version of Kelvro and stays as it is: save "
                               "under another name");
    }
    if (known && HasChanged(path, *known)) {
        return Status::Failure(path.filename().string() +
                               " was changed by another program meanwhile and stays as it is");
    }
    const std::string text = ProjectText(project, folder);
    if (const Status written = WriteAtomically(path, text); !written) return written;
    return Checksum(text);
}

}  // namespace kelvro
