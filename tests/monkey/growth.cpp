#include "tests/monkey/growth.h"

#include <malloc.h>

#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <cstdio>
#include <functional>

#include "ui/sdi_app_form.h"
#include "ui/tab_set.h"

namespace kelvro {

namespace {

constexpr int kEditsPerOpening = 20;
constexpr int kPageChanges = 200;
/// The steps that can be undone are 1000: until then they do pile up.
constexpr int kRemembered = 1100;
/// Bytes: texts, caches of fonts and lists have not all reached their size behind the first part.
constexpr double kMostMemory = 2e6;

/// What a program must not take more and more of.
struct Taken {
    double memory;  ///< bytes that are allocated
    int descriptors;
    int widgets;

    static Taken now() {
        // Deleted later is deleted now.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        const struct mallinfo2 all = mallinfo2();
        return {static_cast<double>(all.uordblks) + static_cast<double>(all.hblkhd),
                static_cast<int>(QDir("/proc/self/fd").count()),
                static_cast<int>(QApplication::allWidgets().size())};
    }
};

/// Does a step over and over; what the first ones take is not counted.
bool Grows(const char* what, int first, int times, const std::function<void(int)>& step) {
    Taken before{};
    for (int i = 0; i < times; ++i) {
        if (i == first) before = Taken::now();
        step(i);
        QCoreApplication::processEvents();
    }
    const Taken after = Taken::now();
    std::printf("%d %s: memory %+.0f kB, descriptors %+d, widgets %+d\n", times, what,
                (after.memory - before.memory) / 1e3, after.descriptors - before.descriptors,
                after.widgets - before.widgets);
    return after.memory - before.memory > kMostMemory || after.descriptors > before.descriptors ||
           after.widgets > before.widgets;
}

/// Replaces the text of one of the page's fields, now and then on another page.
void Edit(TSDIAppForm& form, int i, int onEachPage) {
    auto* tabs = form.findChild<TabSet*>("TabSet1");
    if (i % onEachPage == 0) QTest::mouseClick(tabs->tab(i / onEachPage % 19), Qt::LeftButton);
    QList<QLineEdit*> fields;
    for (QLineEdit* field : form.findChildren<QLineEdit*>()) {
        if (field->isVisible() && field->isEnabled() && !field->isReadOnly()) fields << field;
    }
    QLineEdit* field = fields[i % fields.size()];
    field->selectAll();
    QTest::keyClicks(field, QString::number(1 + i % 97));
}

void OpenAndClose(TSDIAppForm& form, int i) {
    const QStringList names = AppWindows::names();
    QWidget* window = form.windows().window(names[i % names.size()]);
    window->show();
    QCoreApplication::processEvents();
    window->close();
}

}  // namespace

int WatchGrowth(int edits) {
    TSDIAppForm form;
    form.session().setMessageSink([](const QString&) {});
    form.windows().create(StartStage::BeforeSplash);
    form.windows().create(StartStage::BehindSplash);
    form.startUp({});
    form.show();
    const int onEachPage = std::max(1, edits / kPageChanges);
    const bool typing = Grows("edits", std::max(edits / 4, kRemembered), edits,
                              [&](int i) { Edit(form, i, onEachPage); });
    const int openings = edits / kEditsPerOpening;
    const bool opening =
        Grows("openings", openings / 4, openings, [&](int i) { OpenAndClose(form, i); });
    return typing || opening ? 1 : 0;
}

}  // namespace kelvro
