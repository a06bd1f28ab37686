#include "ui/form_proposal.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

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
        form_->show();
    }

    void everyWishChangesTheTable_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("first");  // one of those
        QTest::addRow("harmonics") << "CheckBoxHarmonics"
                                   << "Pi Section|T Section";
        QTest::addRow("balanced") << "CheckBoxBalanced"
                                  << "LC Balun";
        QTest::addRow("resistive") << "CheckBoxResistive"
                                   << "Passive Pi/T Section";
        QTest::addRow("amplifier") << "CheckBoxAmplifier"
                                   << "RLopt";
    }

    void everyWishChangesTheTable() {
        QFETCH(QString, control);
        QFETCH(QString, first);
        const QStringList titles = first.split('|');
        QVERIFY(!titles.contains(titleAt(0)));
        QTest::mouseClick(form_->findChild<QWidget*>(control), Qt::LeftButton, {}, {8, 8});
        QTRY_VERIFY2(titles.contains(titleAt(0)), qPrintable(titleAt(0)));
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

    void escapeCloses() {
        QTest::keyClick(form_.get(), Qt::Key_Escape);
        QVERIFY(!form_->isVisible());
    }

  private:
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
