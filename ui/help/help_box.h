#pragma once

#include <QDialog>
#include <QString>

#include "ui/plot/design_host.h"

class QListWidget;
class QTextBrowser;

namespace kelvro {

/// The built-in manual: search and index on the left, chapter on the right. Opens at the chapter of
/// the page that the main window shows. When a help file of the installation exists, it is shown
/// instead.
class THilfeBox : public QDialog {
    Q_OBJECT

  public:
    THilfeBox(DesignHost& host, QWidget* parent);

    void showTopic(const QString& id);
    QString topic() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void search(const QString& text);

    DesignHost& host_;
    QWidget* contents_;  ///< search and index
    QListWidget* index_;
    QTextBrowser* text_;
};

/// The help file to show: the primary one beside the program or in its share folder when it exists,
/// else an empty text, which stands for the built-in manual.
QString HelpFile();

}  // namespace kelvro
