#pragma once

#include <Eigen/Core>
#include <string>

#include "core/number_text.h"

namespace kelvro {

/// A report in the making: words and numbers one after the other.
class ReportText {
  public:
    ReportText& operator<<(std::string_view words) {
        text_ += words;
        return *this;
    }
    ReportText& operator<<(int number) {
        text_ += std::to_string(number);
        return *this;
    }
    ReportText& operator<<(double number) {
        text_ += FormatEngShort(kDecimals, number);
        return *this;
    }
    /// Its elements on one line.
    ReportText& operator<<(const Eigen::VectorXd& vector) {
        for (Eigen::Index i = 0; i < vector.size(); ++i) {
            if (i > 0) text_ += "  ";
            *this << vector[i];
        }
        return *this;
    }
    /// Its rows, one a line.
    ReportText& operator<<(const Eigen::MatrixXd& matrix) {
        for (Eigen::Index i = 0; i < matrix.rows(); ++i) {
            *this << Eigen::VectorXd(matrix.row(i)) << "\n";
        }
        return *this;
    }

    std::string text() && { return std::move(text_); }

  private:
    static constexpr int kDecimals = 4;  // two would hide the last iterations

    std::string text_;
};

}  // namespace kelvro
