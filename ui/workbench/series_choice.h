#pragma once

#include <QWidget>
#include <optional>

#include "synthesis/standard_values.h"

class QComboBox;
class QLabel;

namespace kelvro {

/// Which values parts may have: a standard series for each kind, or a list of the parts that
/// somebody owns.
class SeriesChoice : public QWidget {
    Q_OBJECT

  public:
    /// Names of the controls begin with `prefix`.
    SeriesChoice(const QString& prefix, bool resistors, Series first, QWidget* parent = nullptr);

    /// Nothing where every kind is free.
    std::optional<StandardOptions> options() const;
    /// Takes the list of a file; why it cannot be read is shown.
    void readOwned(const QString& file);

  signals:
    void changed();

  private:
    QComboBox* addSeries(const char* name, const QString& caption, Series first);
    void chooseFile();

    const QString prefix_;
    QComboBox* inductors_;
    QComboBox* capacitors_;
    QComboBox* resistors_ = nullptr;
    QLabel* ownedName_;
    OwnedParts owned_;
};

}  // namespace kelvro
