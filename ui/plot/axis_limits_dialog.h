#pragma once

#include <QDialog>
#include <vector>

#include "analysis/trace.h"
#include "plot/view_edit.h"

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvro {

/// All ends of the axes in one dialog, for those who type. A range that cannot be shown is named
/// beside the fields, and OK waits until it is mended.
class AxisLimitsDialog : public QDialog {
    Q_OBJECT

  public:
    /// `right` is the trace that names the right axis, null where the view has none.
    AxisLimitsDialog(const View& view, double fo, const Trace& left, const Trace* right,
                     QWidget* parent = nullptr);

    /// The view with the ends as typed; ends whose text was not touched stay exactly as they were.
    View view() const;

  private:
    struct Row {
        Zone zone;
        QLineEdit* field;
        ValueEdit edit;
    };
    void addRow(QFormLayout& form, Zone zone, const char* object, const QString& name,
                const QString& unit);
    double valueOf(Zone zone) const;
    void check();

    View view_;
    double fo_;
    std::vector<Row> rows_;
    QCheckBox* log_;
    QLabel* problem_;
    QPushButton* ok_;
};

}  // namespace kelvro
