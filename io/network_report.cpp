#include "io/network_report.h"

#include <array>
#include <cmath>
#include <initializer_list>

#include "core/number_text.h"
#include "core/scalar.h"
#include "io/text_table.h"

namespace kelvro {

namespace {

/// Bytes of a record of JSON, for a sweep is one text.
constexpr std::size_t kRecordSize = 420;

/// What is left of total reflection by rounding is larger.
constexpr double kLargestVswr = 1e9;

double Decibel(double ratio) {
    return 10 * std::log10(ratio);
}

/// A record is written as text at once: a document of so many small values takes ten times as long
/// as the sweep itself.
class RecordWriter {
  public:
    explicit RecordWriter(std::string& text) : text_(text) { text_ += "  {"; }

    void number(const char* key, double value) {
        startMember(key);
        append(value);
    }
    void complex(const char* key, double re, double im) {
        startMember(key);
        text_ += '[';
        append(re);
        text_ += ", ";
        append(im);
        text_ += ']';
    }
    void end() { text_ += '}'; }

  private:
    void startMember(const char* key) {
        if (text_.back() != '{') text_ += ", ";
        text_ += '"';
        text_ += key;
        text_ += "\": ";
    }
    void append(double value) {
        if (std::isnan(value)) {
            text_ += "null";
        } else if (std::isinf(value)) {
            text_ += value > 0 ? "\"infinite\"" : "\"-infinite\"";
        } else {
            text_ += FormatShortest(value);
        }
    }

    std::string& text_;
};

std::string PolarText(double re, double im) {
    return FormatFixed(0, 4, std::hypot(re, im)) + "∠" +
           FormatFixed(0, 1, std::atan2(im, re) * kDegreesPerRadian) + "°";
}

/// Rounding may leave a lossless network a little less than nothing.
std::string PercentText(double part) {
    const double percent = 100 * part;
    return FormatFixed(0, 1, std::fabs(percent) < 0.05 ? 0 : percent) + " %";
}

std::string OhmsText(double re, double im) {
    return FormatFixed(0, 2, re) + (im < 0 ? " - j" : " + j") + FormatFixed(0, 2, std::fabs(im));
}

}  // namespace

std::string SweepJson(const NetworkSweep& sweep) {
    std::string text = "[\n";
    text.reserve(kRecordSize * sweep.size());
    for (std::size_t i = 0; i < sweep.size(); ++i) {
        RecordWriter record(text);
        record.number("f", sweep.f[i]);
        record.number("gt_db", Decibel(sweep.GT[i]));
        record.complex("gamma_in", sweep.gammaInRe[i], sweep.gammaInIm[i]);
        record.number("vswr", sweep.VSWR[i]);
        record.complex("zin", sweep.ZinRe[i], sweep.ZinIm[i]);
        record.complex("gamma_out", sweep.gammaOutRe[i], sweep.gammaOutIm[i]);
        record.complex("zout", sweep.ZoutRe[i], sweep.ZoutIm[i]);
        record.number("phase_deg", sweep.phase[i] * kDegreesPerRadian);
        record.number("group_delay_s", sweep.groupDelay[i]);
        record.number("dissipated", sweep.dissipated[i]);
        record.end();
        text += i + 1 < sweep.size() ? ",\n" : "\n";
    }
    return text + "]\n";
}

std::string SweepCsv(const NetworkSweep& sweep) {
    std::string text =
        "f_Hz,GT_dB,gamma_in_re,gamma_in_im,VSWR,Zin_re,Zin_im,gamma_out_re,gamma_out_im,"
        "Zout_re,Zout_im,phase_deg,group_delay_s,dissipated\n";
    for (std::size_t i = 0; i < sweep.size(); ++i) {
        text += FormatShortest(sweep.f[i]);
        for (const double value :
             {Decibel(sweep.GT[i]), sweep.gammaInRe[i], sweep.gammaInIm[i], sweep.VSWR[i],
              sweep.ZinRe[i], sweep.ZinIm[i], sweep.gammaOutRe[i], sweep.gammaOutIm[i],
              sweep.ZoutRe[i], sweep.ZoutIm[i], sweep.phase[i] * kDegreesPerRadian,
              sweep.groupDelay[i], sweep.dissipated[i]}) {
            text += ',' + FormatShortest(value);
        }
        text += '\n';
    }
    return text;
}

std::string SweepTable(const NetworkSweep& sweep) {
    std::vector<std::vector<std::string>> rows = {
        {"f", "GT/dB", "Γin", "VSWR", "Zin/Ω", "Γout", "Zout/Ω", "phase", "delay", "lost"}};
    for (std::size_t i = 0; i < sweep.size(); ++i) {
        rows.push_back(
            {FormatQuantity(4, sweep.f[i], "Hz"), FormatFixed(0, 3, Decibel(sweep.GT[i])),
             PolarText(sweep.gammaInRe[i], sweep.gammaInIm[i]),
             sweep.VSWR[i] > kLargestVswr ? "inf" : FormatFixed(0, 3, sweep.VSWR[i]),
             OhmsText(sweep.ZinRe[i], sweep.ZinIm[i]),
             PolarText(sweep.gammaOutRe[i], sweep.gammaOutIm[i]),
             OhmsText(sweep.ZoutRe[i], sweep.ZoutIm[i]),
             FormatFixed(0, 1, sweep.phase[i] * kDegreesPerRadian) + "°",
             FormatQuantity(2, sweep.groupDelay[i], "s"), PercentText(sweep.dissipated[i])});
    }
    return AlignedTable(rows);
}

}  // namespace kelvro
