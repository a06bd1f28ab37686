#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

class QWidget;

namespace kelvro {

class DesignSession;

/// When a window is made: the plot windows and dialogs with the main window, the boxes behind the
/// splash screen, what not everybody uses when it is asked for.
enum class StartStage : unsigned char { BeforeSplash, BehindSplash, WhenOpened };

/// A control of the main window (button or menu item) and the window that it opens.
struct WindowLink {
    const char* control;
    const char* window;
};

/// All windows beside the main one. Each is made once, and shown and hidden as needed.
class AppWindows {
  public:
    /// `parent` is what dialogs stay in front of.
    AppWindows(DesignSession& session, QWidget& parent);
    ~AppWindows();

    /// Makes the windows of one stage, in the order of the table.
    void create(StartStage stage);
    /// Shows a window by the name of its class, made now if it does not exist yet.
    void open(const QString& name);
    /// The window of a class name, made if need be; null for an unknown name.
    QWidget* window(const QString& name);
    /// Told of each window that is made from now on.
    void whenMade(std::function<void(QWidget&)> told) { whenMade_ = std::move(told); }
    void closeAll();

    /// Lets the controls below `root` open their windows.
    void connectControls(const QWidget& root);
    static std::span<const WindowLink> links();
    /// All windows that can be opened, by the names of their classes.
    static QStringList names();

  private:
    QWidget* make(const QString& name);
    /// Lets F1 in a window open the chapter of the manual that tells of it.
    void connectHelp(QWidget& made, const char* topic);

    DesignSession& session_;
    QWidget& parent_;
    std::vector<std::unique_ptr<QWidget>> owned_;
    QHash<QString, QWidget*> byName_;
    std::function<void(QWidget&)> whenMade_;
};

}  // namespace kelvro
