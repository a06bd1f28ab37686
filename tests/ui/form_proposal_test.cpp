#include "ui/form_proposal.h"

#include <QtTest>
#include <QtWidgets>

#include "ui/design_session.h"
#include "ui/fields.h"

namespace kelvro {

class FormProposalTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        session_ = std::make_unique<DesignSession>();
        messages_.clear();
        session_->setMessageSink([this](const QString& text) { messages_ << text; });
        form_ = std::make_unique<TFormProposal>(*session_);
        form_->setMayExchange([] { return true; });
        searches().setChecked(false);
        form_->show();
    }

    void networksArriveAmongThePagesAndOpen() {
        QStringList pages;
        for (int row = 0; row < table().topLevelItemCount(); ++row) pages << titleAt(row);
        searches().setChecked(true);
        QTRY_COMPARE_WITH_TIMEOUT(form_->networks().size(), std::size_t(3), 60'000);
        QStringList found;
        for (int row = 0; row < table().topLevelItemCount(); ++row) {
            const bool network = titleAt(row).startsWith("Search");
            (network ? found : pages) << titleAt(row);
        }
        QCOMPARE(pages.mid(pages.size() / 2), pages.mid(0, pages.size() / 2));
        QCOMPARE(found.size(), 3);
        QSignalSpy chosen(form_.get(), &TFormProposal::networkChosen);
        for (int row = 0; row < table().topLevelItemCount(); ++row) {
            if (titleAt(row) != "Search, 2 parts") continue;
            table().setCurrentItem(table().topLevelItem(row));
            QTest::mouseClick(form_->findChild<QPushButton*>("ButtonGo"), Qt::LeftButton);
        }
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(chosen[0][1].value<Network>().ladder.size(), std::size_t(2));
        // Other wishes: nothing stays that was found for the old ones.
        QTest::keyClicks(form_->findChild<InputEdit*>("ProposalQEingabe"), "8");
        QTRY_COMPARE(form_->networks().size(), std::size_t(0));
    }

    void everyWishChangesTheTable() {
        for (const auto& [control, first] : {std::pair{"CheckBoxHarmonics", "Pi Section|T Section"},
                                             {"CheckBoxBalanced", "LC Balun"},
                                             {"CheckBoxResistive", "Passive Pi/T Section"},
                                             {"CheckBoxAmplifier", "RLopt"}}) {
            const QStringList titles = QString(first).split('|');
            auto* wish = form_->findChild<QWidget*>(control);
            QVERIFY(!titles.contains(titleAt(0)));
            QTest::mouseClick(wish, Qt::LeftButton, {}, {8, 8});
            QTRY_VERIFY2(titles.contains(titleAt(0)), qPrintable(titleAt(0)));
            QTest::mouseClick(wish, Qt::LeftButton, {}, {8, 8});
            QTRY_VERIFY2(!titles.contains(titleAt(0)), control);
        }
    }

    void followsTheDesign() {
        session_->edit("300 Ω", [](Design& design) { design.R1 = design.R2 = 300; });
        QTRY_VERIFY(form_->findChild<QLabel*>("LabelInputs")->text().contains("R1 300.00 Ω"));
        for (int i = 0; i < table().topLevelItemCount(); ++i) QVERIFY(titleAt(i) != "LC Gamma");
    }

    void theQAndTheBandwidthReplaceEachOther() {
        auto* Q = form_->findChild<InputEdit*>("ProposalQEingabe");
        auto* B = form_->findChild<InputEdit*>("ProposalBEingabe");
        QTest::keyClicks(Q, "8");
        QTest::keyClicks(B, "10M");
        QCOMPARE(Q->text(), "");
        QTRY_VERIFY(table().topLevelItem(0)->child(0)->text(0).contains("10.0 MHz is wanted"));
        QTest::keyClicks(Q, "8");
        QCOMPARE(B->text(), "");
    }

    /// The page shows the numbers of the row, for rows that switch R1 and R2 or L and C as well.
    void aDoubleClickGoesToThePage() {
        const int rows = table().topLevelItemCount();
        QVERIFY(rows > 8);
        for (int row = 0; row < rows; ++row) {
            session_->open(Design{});
            QTest::qWait(1);
            QTRY_COMPARE(table().topLevelItemCount(), rows);
            table().scrollToItem(table().topLevelItem(row));
            const Proposal promised = form_->proposals()[static_cast<std::size_t>(row)];
            const QPoint at = table().visualItemRect(table().topLevelItem(row)).center();
            QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, at);
            QCOMPARE(session_->design().page, promised.page);
            QCOMPARE(session_->design().components == promised.state.components, true);
            QCOMPARE(session_->result().v, promised.cycle.v);
            QCOMPARE(messages_, QStringList());
        }
    }

    void resistancesStayWhereTheUserDoesNotAgree() {
        form_->setMayExchange([] { return false; });
        for (int row = 0; row < table().topLevelItemCount(); ++row) {
            if (!form_->proposals()[static_cast<std::size_t>(row)].turned) continue;
            table().setCurrentItem(table().topLevelItem(row));
            const int page = form_->proposals()[static_cast<std::size_t>(row)].page;
            form_->ButtonGoClick();
            QCOMPARE(session_->design().page, page);
            QCOMPARE(session_->design().R1, 50.0);
            QCOMPARE(session_->design().R2, 200.0);
            QCOMPARE(messages_.size(), 1);  // of the page, which needs them switched
            messages_.clear();
            return;
        }
        QFAIL("no circuit runs the other way");
    }

    void unsuitedCircuitsShowTheirReasonAndLeadNowhere() {
        const int suited = table().topLevelItemCount();
        QTest::mouseClick(form_->findChild<QWidget*>("CheckBoxUnsuited"), Qt::LeftButton, {},
                          {8, 8});
        QTRY_VERIFY(table().topLevelItemCount() > suited);
        QTreeWidgetItem* last = table().topLevelItem(table().topLevelItemCount() - 1);
        QVERIFY(last->child(0)->text(0).contains("not suited"));
        table().setCurrentItem(last);
        QVERIFY(!form_->findChild<QPushButton*>("ButtonGo")->isEnabled());
        const int page = session_->design().page;
        form_->ButtonGoClick();
        QCOMPARE(session_->design().page, page);
    }

    void anEmptyTableSaysSo() {
        const auto* none = form_->findChild<QLabel*>("LabelNone");
        QVERIFY(!none->isVisible());
        form_->findChild<QCheckBox*>("CheckBoxResistive")->click();
        form_->findChild<QCheckBox*>("CheckBoxBalanced")->click();
        QTRY_COMPARE(table().topLevelItemCount(), 0);
        QVERIFY(none->isVisible());
    }

    void copiesTheTable() {
        QTest::mouseClick(form_->findChild<QPushButton*>("ButtonCopyProposals"), Qt::LeftButton);
        const QStringList lines = QApplication::clipboard()->text().split('\n');
        QCOMPARE(lines.size(), table().topLevelItemCount());
        QVERIFY(lines[0].startsWith(titleAt(0) + '\t'));
    }

  private:
    QCheckBox& searches() { return *form_->findChild<QCheckBox*>("CheckBoxSearched"); }
    QTreeWidget& table() { return *form_->findChild<QTreeWidget*>("ProposalTable"); }
    QString titleAt(int row) {
        const QTreeWidgetItem* item = table().topLevelItem(row);
        return item ? item->text(0) : QString();
    }

    std::unique_ptr<DesignSession> session_;
    std::unique_ptr<TFormProposal> form_;
    QStringList messages_;
};

}  // namespace kelvro

QTEST_MAIN(kelvro::FormProposalTest)
#include "form_proposal_test.moc"
