#include "io/project_file.h"

#include <QCryptographicHash>
#include <QString>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>

#include "io/atomic_file.h"
#include "io/data_files.h"
#include "io/touchstone.h"
#include "network/coverage.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr std::uintmax_t kLargestProject = 64 * 1024 * 1024;
constexpr int kDeepest = 100;
constexpr const char* kInterpolations[] = {"linear", "polar", "cubic"};

std::string Checksum(std::string_view content) {
    const QByteArrayView bytes(content.data(), static_cast<qsizetype>(content.size()));
    const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    return "sha256:" + hash.toHex().toStdString();
}

std::optional<std::string> ContentOf(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream) return std::nullopt;
    return text.str();
}

// ---------------------------------------------------------------- reading

/// How deep lists and objects stand in each other. Copying and writing a document takes stack for
/// each level.
int Nesting(const std::string& text) {
    int depth = 0;
    int deepest = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted && c == '\\') ++i;
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == '[' || c == '{') deepest = std::max(deepest, ++depth);
        if (c == ']' || c == '}') --depth;
    }
    return deepest;
}

/// Reads a document member by member; the first failure is kept with its place.
class ProjectReader {
  public:
    ProjectReader(const std::filesystem::path& folder, std::string name)
        : folder_(folder), name_(std::move(name)), files_(folder) {}

    Result<Project> run(const std::string& text) {
        if (!parse(text)) return failure_;
        readVersion();
        if (failure_.ok()) readData();
        if (failure_.ok()) project_.network = network(project_.document, "");
        if (failure_.ok()) readSnapshots();
        if (!failure_.ok()) return failure_;
        for (const std::string& warning : files_.warnings()) project_.messages.push_back(warning);
        return std::move(project_);
    }

  private:
    bool parse(const std::string& text) {
        if (Nesting(text) > kDeepest) {
            fail("its lists", "they are nested deeper than " + std::to_string(kDeepest));
            return false;
        }
        try {
            project_.document = Json::parse(text);
        } catch (const Json::parse_error& error) {
            const auto before = std::min(error.byte, text.size());
            const auto line =
                1 +
                std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(before), '\n');
            fail("line " + std::to_string(line), "this is not JSON");
            return false;
        } catch (const Json::exception&) {  // it does not say where
            fail("its numbers", "one is larger than any number can be");
            return false;
        }
        if (!project_.document.is_object()) fail("line 1", "expected a JSON object");
        return failure_.ok();
    }

    void readVersion() {
        const Json& version = project_.document.value("version", Json());
        if (!version.is_number_integer() || version.get<std::int64_t>() < 1) {
            return fail("version", "expected the version of a Kelvro project");
        }
        if (version.get<std::int64_t>() <= kProjectVersion) return;
        project_.readOnly = true;
        project_.messages.push_back(name_ +
                                    " was written by a later version of Kelvro; it can be "
                                    "looked at but not saved");
    }

    void readData() {
        const Json& data =
            member(project_.document, "data", Json::object(), &Json::is_object, "an object");
        for (const auto& [key, entry] : data.items()) {
            if (!failure_.ok()) return;
            const std::string where = "data." + key;
            if (!entry.is_object()) return fail(where, "expected an object");
            if (entry.contains("touchstone")) {
                readEmbedded(key, entry, where);
            } else {
                readLinked(key, entry, where);
            }
        }
    }

    void readEmbedded(const std::string& key, const Json& entry, const std::string& where) {
        if (!entry["touchstone"].is_string()) return fail(where + ".touchstone", "expected a text");
        take(ParseTouchstone(entry["touchstone"].get<std::string>(), key), entry, where);
    }

    void readLinked(const std::string& key, const Json& entry, const std::string& where) {
        const Json& path = entry.value("path", Json());
        if (!path.is_string()) return fail(where, "expected \"touchstone\" or \"path\"");
        const std::filesystem::path file = folder_ / path.get<std::string>();
        take(ReadTouchstone(file, key), entry, where);
        project_.linkedData[key] = file;
        const Json& checksum = entry.value("checksum", Json());
        const auto content = ContentOf(file);
        if (checksum.is_string() && content && checksum != Checksum(*content)) {
            project_.messages.push_back(key + " has changed since " + name_ + " was saved");
        }
    }

    void take(Result<TouchstoneContent> read, const Json& entry, const std::string& where) {
        if (!read.ok()) return fail(where, read.message());
        const Json& wanted = entry.value("interpolation", Json("linear"));
        const auto* found = std::ranges::find(
            kInterpolations, wanted.is_string() ? wanted.get<std::string>() : std::string());
        if (found == std::end(kInterpolations)) {
            return fail(where + ".interpolation", "expected linear, polar or cubic");
        }
        read->data.interpolation = static_cast<Interpolation>(found - kInterpolations);
        files_.add(std::make_shared<const PortData>(std::move(read->data)));
    }

    void readSnapshots() {
        const Json& all = member(project_.document, "snapshots", Json::array(), &Json::is_array,
                                 "a list of snapshots");
        for (std::size_t i = 0; i < all.size() && failure_.ok(); ++i) {
            const std::string where = "snapshots[" + std::to_string(i) + ']';
            if (!all[i].is_object()) return fail(where, "expected an object with name and network");
            const Json& name = member(all[i], "name", Json(""), &Json::is_string, "a text");
            const Json& shown = member(all[i], "shown", Json(true), &Json::is_boolean, "a boolean");
            Network network = this->network(all[i], where + '.');
            if (!failure_.ok()) return;
            project_.snapshots.push_back(
                {name.get<std::string>(), std::move(network), shown.get<bool>()});
        }
    }

    /// The member "network" of an object that stands at `where`.
    Network network(const Json& object, const std::string& where) {
        Network network;
        const Json& json = member(object, "network", Json(), &Json::is_object,
                                  "an object with source, ladder and load");
        if (!failure_.ok()) return network;
        const std::string place = where + "network.";
        network.source = termination(json, place, "source");
        network.load = termination(json, place, "load");
        const Json& ladder = member(json, "ladder", Json::array(), &Json::is_array, "a list");
        for (std::size_t i = 0; i < ladder.size() && failure_.ok(); ++i) {
            network.ladder.push_back(
                element(ladder[i], place + "ladder[" + std::to_string(i) + ']'));
        }
        network.designFrequency = number(json, "designFrequency");
        const Json& bands = member(json, "bands", Json::array(), &Json::is_array, "a list");
        for (std::size_t i = 0; i < bands.size() && failure_.ok(); ++i) {
            network.bands.push_back(band(bands[i], place + "bands[" + std::to_string(i) + ']'));
        }
        const Json& caption = member(json, "caption", Json(""), &Json::is_string, "a text");
        if (failure_.ok()) network.caption = caption.get<std::string>();
        return network;
    }

    LadderElement element(const Json& json, const std::string& where) {
        if (!json.is_string()) fail(where, "expected a text");
        if (!failure_.ok()) return {};
        auto read = ParseElement(json.get<std::string>(), files_.loader());
        if (!read.ok()) fail(where, read.message());
        return read.ok() ? std::move(*read) : LadderElement();
    }

    FrequencyBand band(const Json& json, const std::string& where) {
        if (!json.is_object()) fail(where, "expected an object with low and high");
        if (!failure_.ok()) return {};
        const FrequencyBand band{number(json, "low"), number(json, "high")};
        if (!(band.low > 0 && band.high > band.low)) {
            fail(where, "expected low above 0 and high above low");
        }
        return band;
    }

    Termination termination(const Json& network, const std::string& place, const char* key) {
        const Json& text = member(network, key, Json(), &Json::is_string, "an impedance as text");
        if (!failure_.ok()) return {};
        auto read = ParseTermination(text.get<std::string>(), files_.loader());
        if (!read.ok()) fail(place + key, read.message());
        return read.ok() ? std::move(*read) : Termination();
    }

    double number(const Json& object, const char* key) {
        const Json& value = member(object, key, Json(0.0), &Json::is_number, "a number");
        const double read = value.is_number() ? value.get<double>() : 0;
        if (!(read >= 0)) fail(key, "expected a frequency");
        return read;
    }

    Json member(const Json& object, const char* key, const Json& otherwise,
                bool (Json::*is)() const noexcept, const char* what) {
        const auto found = object.find(key);
        const Json& value = found == object.end() ? otherwise : *found;
        if (!(value.*is)()) fail(key, std::string("expected ") + what);
        return value;
    }

    void fail(const std::string& where, const std::string& message) {
        if (failure_.ok()) failure_ = Status::Failure(name_ + ", " + where + ": " + message);
    }

    std::filesystem::path folder_;
    std::string name_;
    DataFiles files_;
    Project project_;
    Status failure_;
};

// ---------------------------------------------------------------- writing

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
    for (const ProjectSnapshot& snapshot : project.snapshots) {
        for (auto& data : DataOf(snapshot.network)) {
            if (std::ranges::find(all, data) == all.end()) all.push_back(std::move(data));
        }
    }
    return all;
}

/// An entry of "data", with what others keep there.
Json DataJson(const PortData& data, const Project& project, const std::filesystem::path& folder,
              Json json) {
    if (!json.is_object()) json = Json::object();
    const auto link = project.linkedData.find(data.name);
    const auto content = link == project.linkedData.end() ? std::nullopt : ContentOf(link->second);
    if (content) {
        json.erase("touchstone");
        std::error_code error;
        const auto relative = std::filesystem::relative(link->second, folder, error);
        json["path"] = (error || relative.empty() ? link->second : relative).generic_string();
        json["checksum"] = Checksum(*content);
    } else {
        json.erase("path");
        json.erase("checksum");
        json["touchstone"] = TouchstoneText(data, {});
    }
    json["interpolation"] = kInterpolations[static_cast<std::size_t>(data.interpolation)];
    return json;
}

}  // namespace

Result<Project> ParseProject(const std::string& text, const std::filesystem::path& folder,
                             const std::string& name) {
    return ProjectReader(folder, name).run(text);
}

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
    return ParseProject(*content, path.parent_path(), name);
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
    const Json known = document.value("data", Json::object());
    document["data"] = Json::object();
    for (const auto& data : DataOf(project)) {
        document["data"][data->name] =
            DataJson(*data, project, folder, known.value(data->name, Json()));
    }
    return JsonText(document);
}

Status WriteProject(const std::filesystem::path& path, const Project& project) {
    if (project.readOnly) {
        return Status::Failure(
            "this project was written by a later version of Kelvro and cannot be "
            "saved by this one");
    }
    const std::string text = ProjectText(project, std::filesystem::absolute(path).parent_path());
    return WriteAtomically(QString::fromStdString(path.string()), QByteArray::fromStdString(text));
}

}  // namespace kelvro
