#include "io/data_files.h"

#include "io/touchstone.h"

namespace kelvro {

Result<std::shared_ptr<const PortData>> DataFiles::load(std::string_view file) {
    const auto known = known_.find(file);
    if (known != known_.end()) return known->second;
    auto read = ReadTouchstone(folder_ / file, file);
    if (!read.ok()) {
        failed_ = true;
        return read.status();
    }
    for (const std::string& warning : read->warnings) {
        warnings_.push_back(std::string(file) + ", " + warning);
    }
    auto data = std::make_shared<const PortData>(std::move(read->data));
    known_.emplace(file, data);
    return data;
}

void DataFiles::add(std::shared_ptr<const PortData> data) {
    known_.insert_or_assign(data->name, std::move(data));
}

}  // namespace kelvro
