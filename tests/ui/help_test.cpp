#include <QtTest>
#include <QtWidgets>

#include "design/cycle.h"
#include "design/pages.h"
#include "ui/help/circuit_hints_dlg.h"
#include "ui/help/help_box.h"
#include "ui/help/manual_text.h"
#include "ui/help/manual_view.h"

using namespace kelvro;

namespace {

/// A main window that has a page and nothing else.
class PageOnlyHost : public DesignHost {
  public:
    const Design& design() const override { return result_.design; }
    const CycleResult& result() const override { return result_; }
    void recalculate(bool) override { emit designChanged(); }
    void goToPage(int page) override {
        EnterPage(result_.design, page);
        emit designChanged();
    }
    void showMessage(const QString&) override {}

  private:
    CycleResult result_;
};

}  // namespace

class HelpTest : public QObject {
    Q_OBJECT

  private slots:
    void everyLinkOfTheManualLeadsToAChapter() {
        QStringList ids;
        for (const ManualTopic& topic : ManualTopics()) ids << topic.id;
        QCOMPARE(ids.removeDuplicates(), 0);
        const QRegularExpression link(QStringLiteral("href=\"([^\"]+)\""));
        for (const ManualTopic& topic : ManualTopics()) {
            const QString html = ManualHtml(topic.id);
            QVERIFY2(html.contains("<h2>"), qPrintable(topic.id));
            QVERIFY2(topic.id == ids.front() || html != ManualHtml(ids.front()),
                     qPrintable("no chapter of its own: " + topic.id));
            auto match = link.globalMatch(html);
            while (match.hasNext()) QVERIFY(ids.contains(match.next().captured(1)));
        }
    }

    /// What a chapter is made of is the same in each language: links, pictures, commands, rows.
    void chaptersOfOtherLanguagesTellTheSame() {
        const auto made = [](const QString& folder, const QString& id) {
            QFile file(QStringLiteral(":/manual/%1%2.html").arg(folder, id));
            if (!file.open(QIODevice::ReadOnly)) return QStringList{"no file"};
            static const QRegularExpression pieces(
                "(?:href|src)=[\"'][^\"']+|<pre>.*?</pre>|<(?:h2|h3|li|tr|p|b)>|-?\\d+\\.\\d+ dB",
                QRegularExpression::DotMatchesEverythingOption);
            QStringList found;
            const QString html = QString::fromUtf8(file.readAll());
            for (auto match = pieces.globalMatch(html); match.hasNext();)
                found << match.next().captured();
            found.sort();
            return found;
        };
        QVERIFY(ManualTopics().size() > Pages().size());
        for (const ManualTopic& topic : ManualTopics()) {
            if (topic.id.startsWith("page-")) continue;
            QCOMPARE(made("de/", topic.id), made("", topic.id));
        }
    }

    void everyPictureOfTheManualIsThere() {
        const QRegularExpression picture(QStringLiteral("src=[\"'](picture:[^\"']+)"));
        int pictures = 0;
        ManualView view;
        for (const ManualTopic& topic : ManualTopics()) {
            auto match = picture.globalMatch(ManualHtml(topic.id));
            while (match.hasNext()) {
                const QString name = match.next().captured(1);
                const QVariant image = view.loadResource(QTextDocument::ImageResource, QUrl(name));
                QVERIFY2(image.value<QImage>().width() > 100, qPrintable(name));
                ++pictures;
            }
        }
        QVERIFY(pictures > 19);
    }

    void searchListsTheChaptersWithAllItsWords() {
        PageOnlyHost host;
        THilfeBox box(host, nullptr);
        box.show();
        const auto* index = box.findChild<QListWidget*>("HilfeIndex");
        auto* search = box.findChild<QLineEdit*>("HilfeSuche");
        const auto listed = [&] {
            QStringList titles;
            for (int row = 0; row < index->count(); ++row)
                if (!index->item(row)->isHidden()) titles << index->item(row)->text();
            return titles;
        };
        QTest::keyClicks(search, "salesman");  // in no chapter
        QCOMPARE(listed(), QStringList());
        search->clear();
        QTest::keyClicks(search, "ANNEALING cities");
        QCOMPARE(listed(), QStringList("Optimization"));
        QCOMPARE(box.topic(), QStringLiteral("optimizer"));
        search->clear();
        QCOMPARE(listed().size(), index->count());
    }

    void helpOpensAtTheChapterOfThePage() {
        PageOnlyHost host;
        host.goToPage(4);
        THilfeBox box(host, nullptr);
        box.show();
        QCOMPARE(box.topic(), QStringLiteral("page-4"));
        const auto* text = box.findChild<QTextBrowser*>("HilfeText");
        QVERIFY(text->toPlainText().contains("T Section"));
        auto* index = box.findChild<QListWidget*>("HilfeIndex");
        index->setFocus();
        QTest::keyClick(index, Qt::Key_Home);
        QCOMPARE(box.topic(), QStringLiteral("start"));
        QTest::keyClick(&box, Qt::Key_Escape);
        QVERIFY(!box.isVisible());
    }

    void circuitHintsFollowThePage() {
        PageOnlyHost host;
        TCircuitHintsDlg dialog(host, nullptr);
        const auto* text = dialog.findChild<QTextBrowser*>("CircuitHintsText");
        const QString first = text->toPlainText();
        host.goToPage(15);
        QVERIFY(dialog.windowTitle().contains("Class-E"));
        QVERIFY(text->toPlainText() != first);
    }
};

QTEST_MAIN(HelpTest)
#include "help_test.moc"
