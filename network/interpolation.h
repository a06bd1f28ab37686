#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "network/port_data.h"

namespace kelvro {

/// How texts and files call the forms of Interpolation, in its order.
inline constexpr std::array<std::string_view, 3> kInterpolationWords{"linear", "polar", "cubic"};

/// The data, read between samples in this way: themselves, or a copy.
inline std::shared_ptr<const PortData> Interpolated(const std::shared_ptr<const PortData>& data,
                                                    Interpolation form) {
    if (data->interpolation == form) return data;
    PortData other = *data;
    other.interpolation = form;
    return std::make_shared<const PortData>(std::move(other));
}

}  // namespace kelvro
