#pragma once

#include <QWidget>
#include <functional>

#include "network/network_text.h"
#include "ui/workbench/network_model.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;

namespace kelvro {

class LadderPicture;
struct ElementKind;
struct LadderPlace;

/// A termination as text, with the reason beside it while it cannot be read. Leaving the field
/// writes back what is in use.
class TerminationEdit : public QWidget {
    Q_OBJECT

  public:
    using Member = Termination Network::*;

    TerminationEdit(const char* object, const QString& caption, NetworkModel& model, Member member,
                    DataLoader load, QWidget* parent = nullptr);

  private:
    void apply();
    void chooseFile();
    void showModel();

    NetworkModel& model_;
    const Member member_;
    const QString caption_;
    const DataLoader load_;
    QLineEdit* edit_;
    QLabel* problem_;
};

/// The ladder as a list of element texts from source to load: edited in place, moved by dragging or
/// by Ctrl+Up and Ctrl+Down, deleted by Del, added by the buttons or by Ins. In its picture all of
/// that goes by dragging, replacing as well. The right button offers place, kind, standard values,
/// losses, tolerance.
class LadderPanel : public QWidget {
    Q_OBJECT

  public:
    LadderPanel(NetworkModel& model, DataLoader load, QWidget* parent = nullptr);

    void setSeries(Series series) { series_ = series; }
    /// Which element is chosen in the list; -1 for none.
    int current() const;

  signals:
    /// A text could not be read, or why something cannot be done; empty when it is cured.
    void problem(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buildButtons(QBoxLayout& column);
    void showModel();
    void followSelection();
    void itemEdited(QListWidgetItem* item);
    void rowsMoved();
    void rowChosen(int row);
    /// A new element of a kind, with a useful value, behind the chosen one.
    void addKind(const ElementKind& kind);
    void addElement(const LadderElement& element, int row);
    void replaceElement(const QString& name, const LadderElement& element, int row);
    void removeElement(int row);
    void moveCurrent(int step);
    void moveElement(int from, int to);
    void swapElements(int a, int b);
    void takeDropped(int from, LadderPlace to, bool copy);
    void takeKind(const ElementKind& kind, LadderPlace to);
    /// |Zs|, by which new elements are sized.
    double usualResistance() const;
    void showMenu(int row, QPoint global);
    void addPartActions(QMenu& menu, const Tunable& at);
    /// A step that changes one element of the ladder.
    void editElement(const QString& name, std::size_t index,
                     const std::function<void(LadderElement&)>& change);
    void askForLoss(const Tunable& at);
    void askForTolerance(const Tunable& at);
    /// Asks for a text until `take` can read it, or the user gives up.
    void ask(const QString& title, const QString& label, QString text,
             const std::function<Status(const QString&)>& take);

    NetworkModel& model_;
    const DataLoader load_;
    LadderPicture* picture_;
    QListWidget* list_;
    Series series_ = Series::E24;
    bool filling_ = false;
};

}  // namespace kelvro
