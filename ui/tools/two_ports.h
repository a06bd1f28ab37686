#pragma once

#include <array>
#include <optional>

#include "network/two_port.h"
#include "ui/tools/tool_window.h"

namespace kelvro {

/// "Two-Ports": S, Z, Y and chain parameters of a two-port, or of two in cascade, as any of the
/// others, with gain and stability.
class TFormTwoPorts : public ToolWindow {
    Q_OBJECT

  public:
    explicit TFormTwoPorts(QWidget* parent = nullptr);

  protected:
    void recalculate() override;

  private:
    /// A two-port as it is typed.
    struct Entry {
        QComboBox* kind;
        std::array<Pair<InputEdit>, 4> elements;
        InputEdit* reference;  ///< of scattering parameters
    };
    Entry addEntry(const QString& title, const char* prefix, const QStringList& kinds,
                   const QStringList& start);
    void addResult();
    bool polar() const;
    bool hasSecond() const;
    Parameters kindOf(const Entry& entry) const;
    void showRows();
    void labelEntry(const Entry& entry, bool shown);
    void convertEntries();
    Matrix2 read(const Entry& entry) const;
    /// Scattering parameters between 50 ohm; nothing for a two-port that has none.
    std::optional<Matrix2> scatteringOf(const Entry& entry) const;
    void showMatrix(const std::optional<Matrix2>& matrix);
    void showFigures(const std::optional<Matrix2>& s, Ports ports);
    void showComplex(const Pair<OutputEdit>& pair, std::complex<double> value, bool fixed);

    QComboBox* format_;
    Entry first_;
    Entry second_;
    InputEdit* port1_;
    InputEdit* port2_;
    QComboBox* kind_;
    std::array<Pair<OutputEdit>, 4> result_;
    OutputEdit* gain_;
    OutputEdit* returnLoss_;
    OutputEdit* stability_;
    OutputEdit* determinant_;
    OutputEdit* available_;
    Pair<OutputEdit> input_;
    bool polarEntries_ = false;
};

}  // namespace kelvro
