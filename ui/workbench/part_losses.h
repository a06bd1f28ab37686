#pragma once

#include <QLineEdit>

#include "core/result.h"
#include "network/part.h"

namespace kelvro {

class NetworkModel;

/// "Q=40@100M,ESR=0.1": what stands in the parentheses behind a part's value; empty without losses.
QString LossText(Part part);
/// The part with the losses of such a text. A failure is one line.
Result<Part> WithLosses(const Part& part, const QString& text);

/// The losses of all coils or all capacitors of the network as one text. Where they differ it is
/// empty and says so; what is typed holds for all of them.
class PartLossesEdit : public QLineEdit {
    Q_OBJECT

  public:
    PartLossesEdit(const char* object, PartKind kind, NetworkModel& model,
                   QWidget* parent = nullptr);

  signals:
    /// Why the text cannot be read; empty when it is cured.
    void problem(const QString& text);

  private:
    void apply();
    void showModel();

    const PartKind kind_;
    NetworkModel& model_;
};

}  // namespace kelvro
