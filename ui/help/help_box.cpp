#include "ui/help/help_box.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "analysis/response.h"
#include "design/pages.h"
#include "plot/circuit_painter.h"
#include "ui/help/manual_text.h"

namespace kelvro {

namespace {

/// The design that a chapter's picture shows: the defaults, with R1 and R2 in the order that the
/// page asks for.
DesignState ExampleOf(int page) {
    DesignState state;
    EnterPage(state, page);
    ResponseServices services;
    if (Calculate(state, true, services).message) {
        std::swap(state.R1, state.R2);
        Calculate(state, true, services);
    }
    return state;
}

QImage CircuitPicture(int page, double ratio) {
    const QSizeF size(560, 230);
    QImage image((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const DesignState state = ExampleOf(page);
    QPainter painter(&image);
    painter.scale(ratio, ratio);
    PaintCircuit(painter, QRectF(QPointF(0, 0), size).adjusted(8, 8, -8, -8),
                 PageOf(page).builtCircuit(state), {state.R1, state.R2});
    return image;
}

/// Text view of the manual; draws the pictures that the chapters name.
class ManualView : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const QString path = name.toString();
        const QString circuit = QStringLiteral("picture:circuit-");
        if (path.startsWith(circuit)) {
            return CircuitPicture(path.mid(circuit.size()).toInt(), 2);
        }
        const QString picture = QStringLiteral("picture:");
        if (path.startsWith(picture)) {
            return QImage(QStringLiteral(":/manual/%1.png").arg(path.mid(picture.size())));
        }
        return QTextBrowser::loadResource(type, name);
    }
};

}  // namespace

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
    auto* splitter = new QSplitter;
    splitter->addWidget(index_);
    splitter->addWidget(text_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({190, 640});
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    layout->addWidget(buttons);
    resize(900, 640);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(index_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) text_->setHtml(ManualHtml(item->data(Qt::UserRole).toString()));
    });
    connect(text_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { showTopic(link.toString()); });
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
    const QString file = HelpFile();
    index_->setVisible(file.isEmpty());
    if (file.isEmpty()) {
        showTopic(TopicOfPage(host_.state().page));
    } else {
        text_->setSource(QUrl::fromLocalFile(file));
    }
}

}  // namespace kelvro
