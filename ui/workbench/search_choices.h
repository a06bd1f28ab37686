#pragma once

#include <QWidget>
#include <vector>

#include "core/result.h"
#include "synthesis/rating.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace kelvro {

class SeriesChoice;

/// What a search may use and is to look for: the choices of the command line as controls.
class SearchChoices : public QWidget {
    Q_OBJECT

  public:
    explicit SearchChoices(QWidget* parent = nullptr);

    /// A failure names the field that cannot be read.
    Result<SearchOptions> search() const;
    Result<RatingOptions> rating() const;
    /// Of a constant Q each.
    void setLosses(const SearchLosses& losses);

  signals:
    /// Return in a field.
    void confirmed();

  private:
    QWidget* buildLadder();
    QWidget* buildValues();
    QWidget* buildBuilding();
    QLineEdit* addEdit(QFormLayout& form, const char* name, const QString& caption,
                       const QString& placeholder, const QString& hint);
    void addRange(QFormLayout& form, const char* name, const QString& caption, const char* least,
                  const char* most, QLineEdit*& low, QLineEdit*& high);

    QSpinBox* parts_ = nullptr;
    std::vector<QCheckBox*> kinds_;
    QComboBox* dc_ = nullptr;
    QComboBox* shape_ = nullptr;
    QLineEdit* harmonics_ = nullptr;
    QLineEdit* atSource_ = nullptr;
    QLineEdit* atLoad_ = nullptr;
    QLineEdit* leastL_ = nullptr;
    QLineEdit* mostL_ = nullptr;
    QLineEdit* leastC_ = nullptr;
    QLineEdit* mostC_ = nullptr;
    QLineEdit* leastZ0_ = nullptr;
    QLineEdit* mostZ0_ = nullptr;
    QLineEdit* coilQ_ = nullptr;
    QLineEdit* capacitorQ_ = nullptr;
    SeriesChoice* series_ = nullptr;
    QLineEdit* coilTolerance_ = nullptr;
    QLineEdit* capacitorTolerance_ = nullptr;
    QLineEdit* yieldLimit_ = nullptr;
    QSpinBox* top_ = nullptr;
    QSpinBox* seed_ = nullptr;
};

}  // namespace kelvro
