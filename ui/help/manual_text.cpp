#include "ui/help/manual_text.h"

#include <QFile>
#include <algorithm>

#include "core/number_text.h"
#include "design/pages.h"
#include "ui/help/page_hints.h"
#include "ui/language.h"
#include "ui/texts.h"

/// The chapters lie in a static library, whose resources the linker drops unless they are named.
static void LoadChapters() {
    Q_INIT_RESOURCE(manual);
}

namespace kelvro {

namespace {

QString Escaped(std::string_view text) {
    return Shown(text).toHtmlEscaped();
}

QString FieldRow(std::string_view label, std::string_view unit, const QString& remark) {
    return QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td></tr>")
        .arg(Escaped(label), Escaped(unit), remark);
}

QString InputRemark(const InputField& field) {
    const auto limit = [](double x) {
        return QString::fromStdString(FormatEngShort(2, x)).trimmed();
    };
    return QObject::tr("%1 (%2 to %3)")
        .arg(Escaped(field.hint), limit(field.limits.low), limit(field.limits.high));
}

/// The chapter of a design page, written from the same record that builds its window.
QString PageHtml(const Page& page) {
    QString html = QStringLiteral("<h2>%1</h2>").arg(Escaped(page.caption));
    if (page.networks) {
        html += QStringLiteral("<p><img src='picture:circuit-%1' width='560' height='230'></p>")
                    .arg(page.number);
    }
    for (const NoteField& note : page.notes) {
        html += QStringLiteral("<p><i>%1</i></p>").arg(Escaped(note.text));
    }
    html += HintHtml(page);
    html += QStringLiteral("<h3>%1</h3><table border='1' cellspacing='0' cellpadding='4'>")
                .arg(QObject::tr("Fields"));
    for (const InputField& field : page.inputs) {
        html += FieldRow(field.label, field.unit, InputRemark(field));
    }
    for (const SwitchField& field : page.switches) {
        html += FieldRow(field.caption, "", Escaped(field.hint));
    }
    for (const OutputField& field : page.outputs) {
        html += FieldRow(field.label, field.unit,
                         field.slot == Slot::None
                             ? Escaped(field.hint)
                             : QObject::tr("Component. A double click rounds it to the standard "
                                           "series, the context menu up or down."));
    }
    html += QStringLiteral("</table>");
    if (!page.transferText.empty()) {
        html += QStringLiteral("<h3>%1</h3><p>%2</p><p>G[1] = 1/R1, G[2] = 1/R2</p>")
                    .arg(QObject::tr("Transfer function"), Escaped(page.transferText));
    }
    return html;
}

std::vector<ManualTopic> Topics() {
    LoadChapters();
    std::vector<ManualTopic> topics = {{"start", QObject::tr("First steps")},
                                       {"suggestions", QObject::tr("Suggestions and quiz")},
                                       {"numbers", QObject::tr("How numbers are typed")},
                                       {"outputs", QObject::tr("What the outputs mean")},
                                       {"series", QObject::tr("Standard values and Take")},
                                       {"keys", QObject::tr("Keys")},
                                       {"plots", QObject::tr("Response plots")},
                                       {"tolerances", QObject::tr("Tolerances")},
                                       {"optimizer", QObject::tr("Optimization")},
                                       {"files", QObject::tr("Settings, export, printing")},
                                       {"search", QObject::tr("Finding networks for a band")},
                                       {"tools", QObject::tr("The Tools menu")},
                                       {"network-match", QObject::tr("Match an antenna")},
                                       {"network-tune", QObject::tr("Tune on the Smith chart")},
                                       {"network-compare", QObject::tr("Compare two variants")},
                                       {"command-line", QObject::tr("Command line")}};
    for (const Page& page : Pages())
        topics.push_back({TopicOfPage(page.number), Shown(page.caption)});
    return topics;
}

}  // namespace

const std::vector<ManualTopic>& ManualTopics() {
    static const std::vector<ManualTopic> topics = Topics();
    return topics;
}

QByteArray ManualExample() {
    LoadChapters();
    QFile file(QStringLiteral(":/manual/whip.kelvro"));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QString TopicOfPage(int page) {
    return QStringLiteral("page-%1").arg(page);
}

QString ManualHtml(const QString& id) {
    for (const Page& page : Pages()) {
        if (id == TopicOfPage(page.number)) return PageHtml(page);
    }
    const auto& topics = ManualTopics();
    const bool known =
        std::ranges::any_of(topics, [&](const ManualTopic& t) { return t.id == id; });
    const QString chapter = known ? id : topics.front().id;
    QFile file(QStringLiteral(":/manual/%1/%2.html").arg(LanguageCode(), chapter));
    if (!file.exists()) file.setFileName(QStringLiteral(":/manual/%1.html").arg(chapter));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace kelvro
