#include <algorithm>
#include <cmath>

#include "io/data_files.h"
#include "io/known_file.h"
#include "io/project_file.h"
#include "io/project_words.h"
#include "io/touchstone.h"
#include "network/interpolation.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

constexpr int kDeepest = 100;

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

/// The version that a document says it has; 0 without one.
std::int64_t VersionOf(const Json& document) {
    const Json& version = document.value("version", Json());
    return version.is_number_integer() ? version.get<std::int64_t>() : 0;
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
        if (failure_.ok()) readGhost();
        if (failure_.ok()) readLocked();
        if (failure_.ok()) readMarkers();
        if (!failure_.ok()) return failure_;
        for (const std::string& warning : files_.warnings()) project_.messages.push_back(warning);
        // What only a later version understands does not go into a file of this one.
        if (project_.readOnly) project_.document = Json::object();
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
        const std::int64_t version = VersionOf(project_.document);
        if (version < 1) return fail("version", "expected the version of a Kelvro project");
        if (version <= kProjectVersion) return;
        project_.readOnly = true;
        project_.messages.push_back(
            name_ +
            " was written by a later version of Kelvro: what this one knows "
            "of it is shown, and can be saved under another name");
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

    /// Without their file the network is there all the same, with data that have no samples.
    void readLinked(const std::string& key, const Json& entry, const std::string& where) {
        const Json& path = entry.value("path", Json());
        if (!path.is_string()) return fail(where, "expected \"touchstone\" or \"path\"");
        const std::filesystem::path file = folder_ / path.get<std::string>();
        project_.linkedData[key] = file;
        const int ports = portsOf(key, entry, file);
        std::error_code error;
        Result<TouchstoneContent> read =
            Status::Failure("there is no file \"" + file.string() + '"');
        if (std::filesystem::exists(file, error)) read = ReadTouchstone(file, key);
        if (read.ok() && ports > 0 && read->data.ports != ports) {
            read = Status::Failure(file.filename().string() + " has " +
                                   std::to_string(read->data.ports) + " ports, not " +
                                   std::to_string(ports));
        }
        if (!read.ok()) {
            project_.dataProblems.push_back({key, read.message(), true});
            TouchstoneContent missing;
            missing.data.name = key;
            missing.data.ports = std::max(ports, 1);
            return take(std::move(missing), entry, where);
        }
        const auto now = ContentOf(file);
        const Json& checksum = entry.value("checksum", Json());
        if (checksum.is_string() && now && checksum != Checksum(*now)) {
            project_.dataProblems.push_back(
                {key, file.string() + " has changed since " + name_ + " was saved", false});
        }
        take(std::move(read), entry, where);
    }

    /// As the project or the name says; 0 where neither does.
    static int portsOf(const std::string& key, const Json& entry,
                       const std::filesystem::path& file) {
        const Json& ports = entry.value("ports", Json());
        if (ports == 1 || ports == 2) return ports.get<int>();
        for (const std::filesystem::path& name : {std::filesystem::path(key), file}) {
            const std::string ending = name.extension().string();
            if (ending == ".s1p" || ending == ".S1P") return 1;
            if (ending == ".s2p" || ending == ".S2P") return 2;
        }
        return 0;
    }

    void take(Result<TouchstoneContent> read, const Json& entry, const std::string& where) {
        if (!read.ok()) return fail(where, read.message());
        const auto form = wordOf(entry, "interpolation", kInterpolationWords, where);
        if (!failure_.ok()) return;
        read->data.interpolation = static_cast<Interpolation>(form);
        files_.add(std::make_shared<const PortData>(std::move(read->data)));
    }

    /// Which of the words a member is; the first where there is none.
    template <std::size_t N>
    std::size_t wordOf(const Json& object, const char* key,
                       const std::array<std::string_view, N>& words, const std::string& where) {
        const Json& wanted = object.value(key, Json(words[0]));
        const auto* found = std::ranges::find(
            words, wanted.is_string() ? wanted.get<std::string>() : std::string());
        if (found != words.end()) return static_cast<std::size_t>(found - words.begin());
        std::string all;
        for (const std::string_view word : words)
            all += (all.empty() ? "" : ", ") + std::string(word);
        fail(where + '.' + key, "expected one of " + all);
        return 0;
    }

    void readGhost() {
        if (!project_.document.contains("ghost")) return;
        const Json& ghost = member(project_.document, "ghost", Json(), &Json::is_object,
                                   "an object with a network");
        if (failure_.ok()) project_.ghost = network(ghost, "ghost.");
    }

    /// Such as the ladder does not have are left out.
    void readLocked() {
        const Json& all = member(project_.document, "locked", Json::array(), &Json::is_array,
                                 "a list of what is locked");
        const auto there = TunablesOf(project_.network.ladder);
        for (std::size_t i = 0; i < all.size() && failure_.ok(); ++i) {
            const std::string where = "locked[" + std::to_string(i) + ']';
            if (!all[i].is_object()) return fail(where, "expected an object with element");
            const Json& element = all[i].value("element", Json());
            const Json& part = all[i].value("part", Json(0U));
            if (!element.is_number_unsigned() || !part.is_number_unsigned())
                return fail(where, "expected the numbers of element and part");
            const auto quantity = wordOf(all[i], "quantity", kQuantityWords, where);
            const Tunable at{element.get<std::size_t>(), part.get<std::size_t>(),
                             static_cast<Tunable::Quantity>(quantity)};
            if (std::ranges::find(there, at) != there.end()) project_.locked.push_back(at);
        }
    }

    void readMarkers() {
        const Json& all = member(project_.document, "markers", Json::array(), &Json::is_array,
                                 "a list of frequencies");
        for (const Json& marker : all) {
            const double f = marker.is_number() ? marker.get<double>() : 0;
            if (!(f > 0)) return fail("markers", "expected frequencies above 0");
            project_.markers.push_back(f);
        }
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

}  // namespace

bool IsOfLaterVersion(const std::filesystem::path& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    const auto content = error || size > kLargestProject ? std::nullopt : ContentOf(path);
    if (!content || Nesting(*content) > kDeepest) return false;
    const Json document = Json::parse(*content, nullptr, false);
    return document.is_object() && VersionOf(document) > kProjectVersion;
}

Result<Project> ParseProject(const std::string& text, const std::filesystem::path& folder,
                             const std::string& name) {
    return ProjectReader(folder, name).run(text);
}

}  // namespace kelvro
