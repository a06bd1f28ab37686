#include "ui/help/help_box.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QShowEvent>
#include <QSplitter>
#include <QTextDocumentFragment>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/fields.h"
#include "ui/help/manual_text.h"
#include "ui/help/manual_view.h"

namespace kelvro {

QString HelpFile() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const QString& path :
         {folder + "/kelvro-help.html", folder + "/../share/kelvro/kelvro-help.html"}) {
        if (QFileInfo(path).isReadable() && QFileInfo(path).isFile()) return path;
    }
    return {};
}

THilfeBox::THilfeBox(DesignHost& host, QWidget* parent)
    : QDialog(parent), host_(host), index_(new QListWidget), text_(new ManualView) {
    setObjectName(QStringLiteral("THilfeBox"));
    setWindowTitle(tr("Help"));
    index_->setObjectName(QStringLiteral("HilfeIndex"));
    text_->setObjectName(QStringLiteral("HilfeText"));
    text_->setOpenLinks(false);
    for (const ManualTopic& topic : ManualTopics()) {
        auto* item = new QListWidgetItem(topic.title, index_);
        item->setData(Qt::UserRole, topic.id);
    }
    auto* search = new QLineEdit;
    search->setObjectName(QStringLiteral("HilfeSuche"));
    search->setPlaceholderText(tr("Search"));
    search->setClearButtonEnabled(true);
    SetHint(*search, tr("Lists the chapters in which all these words stand"));
    contents_ = new QWidget;
    auto* left = new QVBoxLayout(contents_);
    left->setContentsMargins(0, 0, 0, 0);
    left->addWidget(search);
    left->addWidget(index_);
    auto* splitter = new QSplitter;
    splitter->addWidget(contents_);
    splitter->addWidget(text_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({190, 640});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    layout->addWidget(buttons);
    resize(900, 640);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(search, &QLineEdit::textChanged, this, &THilfeBox::search);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search,
            qOverload<>(&QWidget::setFocus));
    connect(index_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) text_->setHtml(ManualHtml(item->data(Qt::UserRole).toString()));
    });
    connect(text_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { showTopic(link.toString()); });
}

void THilfeBox::search(const QString& text) {
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    for (int row = 0; row < index_->count(); ++row) {
        QListWidgetItem& item = *index_->item(row);
        const QString html = ManualHtml(item.data(Qt::UserRole).toString());
        const QString chapter = QTextDocumentFragment::fromHtml(html).toPlainText();
        item.setHidden(!std::ranges::all_of(words, [&](const QString& word) {
            return chapter.contains(word, Qt::CaseInsensitive);
        }));
    }
    if (const auto* present = index_->currentItem(); present && !present->isHidden()) return;
    for (int row = 0; row < index_->count(); ++row) {
        if (!index_->item(row)->isHidden()) return index_->setCurrentRow(row);
    }
}

void THilfeBox::showTopic(const QString& id) {
    for (int row = 0; row < index_->count(); ++row) {
        if (index_->item(row)->data(Qt::UserRole).toString() == id) index_->setCurrentRow(row);
    }
}

QString THilfeBox::topic() const {
    const QListWidgetItem* item = index_->currentItem();
    return item ? item->data(Qt::UserRole).toString() : QString();
}

void THilfeBox::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    const QString file = HelpFile();
    contents_->setVisible(file.isEmpty());
    index_->setFocus();
    if (file.isEmpty()) {
        showTopic(TopicOfPage(host_.design().page));
    } else {
        text_->setSource(QUrl::fromLocalFile(file));
    }
}

}  // namespace kelvro
