#include "io/data_files.h"

#include "io/touchstone.h"

namespace kelvro {

Result<std::shared_ptr<const PortData>> DataFiles::load(std::string_view file) {
    const auto known = known_.find(file);
    const auto stamp = stampOf(file);
    // What the design knows outlives its file.
    if (known != known_.end() && (!known->second.file || !stamp || known->second.file == stamp)) {
        return known->second.data;
    }
    auto read = ReadTouchstone(folder_ / file, file);
    if (!read.ok()) {
        failed_ = true;
        return read.status();
    }
    for (const std::string& warning : read->warnings) {
        warnings_.push_back(std::string(file) + ", " + warning);
    }
    auto data = std::make_shared<const PortData>(std::move(read->data));
    known_.insert_or_assign(std::string(file), Known{data, stamp});
    return data;
}

void DataFiles::add(const std::shared_ptr<const PortData>& data) {
    known_.insert_or_assign(data->name, Known{data, {}});
}

bool DataFiles::stillInFile(const std::shared_ptr<const PortData>& data) const {
    const auto known = known_.find(data->name);
    if (known == known_.end() || !known->second.file) return false;
    const PortData& file = *known->second.data;
    const bool same = known->second.data == data ||
                      (file.f == data->f && file.s == data->s && file.reference == data->reference);
    return same && known->second.file == stampOf(data->name);
}

std::optional<DataFiles::Stamp> DataFiles::stampOf(std::string_view file) const {
    std::error_code error;
    const std::filesystem::path path = folder_ / file;
    const auto written = std::filesystem::last_write_time(path, error);
    if (error) return std::nullopt;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return std::nullopt;
    return Stamp{written, size};
}

}  // namespace kelvro
