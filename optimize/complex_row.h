#pragma once

#include <complex>
#include <cstddef>
#include <vector>

// Complex numbers per frequency, real and imaginary parts in arrays of their own: loops over them
// are vectorized by the compiler, products without the library's care for infinities.

namespace kelvro {

struct ComplexRow {
    std::vector<double> re;
    std::vector<double> im;

    std::size_t size() const { return re.size(); }
    void resize(std::size_t size) {
        re.resize(size);
        im.resize(size);
    }
    void fill(std::size_t size, double value) {
        re.assign(size, value);
        im.assign(size, 0);
    }
    void set(std::size_t i, std::complex<double> value) {
        re[i] = value.real();
        im[i] = value.imag();
    }
};

/// row = a·A.
inline void Scale(ComplexRow& row, double a, const ComplexRow& A) {
    const std::size_t size = A.size();
    double* __restrict re = row.re.data();
    double* __restrict im = row.im.data();
    const double* ARe = A.re.data();
    const double* AIm = A.im.data();
    for (std::size_t i = 0; i < size; ++i) {
        re[i] = a * ARe[i];
        im[i] = a * AIm[i];
    }
}

/// row = a·row.
inline void Scale(ComplexRow& row, double a) {
    for (double& re : row.re) re *= a;
    for (double& im : row.im) im *= a;
}

/// row = a·A + b·B; row is another one than A and B.
inline void Combine(ComplexRow& row, double a, const ComplexRow& A, double b, const ComplexRow& B) {
    const std::size_t size = A.size();
    double* __restrict re = row.re.data();
    double* __restrict im = row.im.data();
    const double* ARe = A.re.data();
    const double* AIm = A.im.data();
    const double* BRe = B.re.data();
    const double* BIm = B.im.data();
    for (std::size_t i = 0; i < size; ++i) {
        re[i] = a * ARe[i] + b * BRe[i];
        im[i] = a * AIm[i] + b * BIm[i];
    }
}

/// row += a·A.
inline void Accumulate(ComplexRow& row, double a, const ComplexRow& A) {
    const std::size_t size = A.size();
    double* __restrict re = row.re.data();
    double* __restrict im = row.im.data();
    const double* ARe = A.re.data();
    const double* AIm = A.im.data();
    for (std::size_t i = 0; i < size; ++i) {
        re[i] += a * ARe[i];
        im[i] += a * AIm[i];
    }
}

/// row = A + B·C, element by element; row is another one than these.
inline void AddProduct(ComplexRow& row, const ComplexRow& A, const ComplexRow& B,
                       const ComplexRow& C) {
    const std::size_t size = A.size();
    double* __restrict re = row.re.data();
    double* __restrict im = row.im.data();
    const double* ARe = A.re.data();
    const double* AIm = A.im.data();
    const double* BRe = B.re.data();
    const double* BIm = B.im.data();
    const double* CRe = C.re.data();
    const double* CIm = C.im.data();
    for (std::size_t i = 0; i < size; ++i) {
        re[i] = ARe[i] + (BRe[i] * CRe[i] - BIm[i] * CIm[i]);
        im[i] = AIm[i] + (BRe[i] * CIm[i] + BIm[i] * CRe[i]);
    }
}

/// row += B·C, element by element; row is another one than these.
inline void AccumulateProduct(ComplexRow& row, const ComplexRow& B, const ComplexRow& C) {
    const std::size_t size = row.size();
    double* __restrict re = row.re.data();
    double* __restrict im = row.im.data();
    const double* BRe = B.re.data();
    const double* BIm = B.im.data();
    const double* CRe = C.re.data();
    const double* CIm = C.im.data();
    for (std::size_t i = 0; i < size; ++i) {
        re[i] += BRe[i] * CRe[i] - BIm[i] * CIm[i];
        im[i] += BRe[i] * CIm[i] + BIm[i] * CRe[i];
    }
}

/// Squares below count as this: the impedance of a lossless pair at its resonance stays a number.
inline constexpr double kLeastSquare = 1e-60;

/// row = 1/row, element by element.
inline void Invert(ComplexRow& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double square = row.re[i] * row.re[i] + row.im[i] * row.im[i];
        const double scale = 1 / (square > kLeastSquare ? square : kLeastSquare);
        row.re[i] *= scale;
        row.im[i] *= -scale;
    }
}

}  // namespace kelvro
