#include "design/transfer.h"

#include <utility>

namespace kelvro {

Transfer Transfer::Polynomial(long double numerator, int power, std::array<long double, 5> a) {
    Transfer transfer;
    transfer.form = Form::Polynomial;
    transfer.numerator = static_cast<double>(numerator);
    transfer.power = power;
    for (std::size_t i = 0; i < a.size(); ++i) transfer.a[i] = static_cast<double>(a[i]);
    return transfer;
}

Transfer Transfer::Line(double ZL) {
    Transfer transfer;
    transfer.form = Form::Line;
    transfer.ZL = ZL;
    return transfer;
}

Transfer Transfer::Ladder(Network network) {
    Transfer transfer;
    transfer.form = Form::Ladder;
    transfer.ladder = std::move(network);
    return transfer;
}

}  // namespace kelvro
