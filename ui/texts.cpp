#include "ui/texts.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QList>
#include <QRegularExpression>
#include <algorithm>

#include "design/cycle.h"
#include "ui/language.h"

namespace kelvro {

namespace {

constexpr char kContext[] = "kelvro";

/// A text with places, as it is found again in what a room says.
struct Pattern {
    QByteArray source;
    QString longest;  ///< of its fixed parts: what does not hold it does not match
    qsizetype fixed;  ///< letters besides the places; the more, the surer a match
    QRegularExpression expression;
    QList<int> places;  ///< numbers of the places in their order in the text
};

Pattern PatternOf(const QByteArray& source) {
    static const QRegularExpression place(QStringLiteral("%([1-9])"));
    Pattern pattern{source, {}, 0, {}, {}};
    const QString text = QString::fromUtf8(source);
    QString expression;
    qsizetype end = 0;
    const auto addFixed = [&](const QString& part) {
        expression += QRegularExpression::escape(part);
        pattern.fixed += part.size();
        if (part.size() > pattern.longest.size()) pattern.longest = part;
    };
    for (auto found = place.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch at = found.next();
        addFixed(text.mid(end, at.capturedStart() - end));
        expression += QStringLiteral("(.+?)");
        pattern.places << at.captured(1).toInt();
        end = at.capturedEnd();
    }
    addFixed(text.mid(end));
    pattern.expression.setPattern(QRegularExpression::anchoredPattern(expression));
    pattern.expression.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

/// The list's texts with places, those with the longest fixed parts first.
QList<Pattern> ReadPatterns() {
    QFile file(QStringLiteral(":/translations/texts.txt"));
    QList<Pattern> patterns;
    if (!file.open(QIODevice::ReadOnly)) return patterns;
    for (QByteArray line : file.readAll().split('\n')) {
        line.replace("\\n", "\n");
        if (!line.startsWith('#') && line.contains("%1")) patterns << PatternOf(line);
    }
    std::ranges::stable_sort(patterns, std::ranges::greater(), &Pattern::fixed);
    return patterns;
}

QString Filled(const QString& text, const Pattern& pattern, const QRegularExpressionMatch& match) {
    QString filled;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int number = text[i] == '%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
        const qsizetype at = pattern.places.indexOf(number);
        if (at < 0) {
            filled += text[i];
            continue;
        }
        filled += Shown(match.captured(static_cast<int>(at) + 1).toStdString());
        ++i;
    }
    return filled;
}

}  // namespace

QString Shown(std::string_view text) {
    QString english = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (text.empty() || !IsTranslated()) return english;
    QString found = QCoreApplication::translate(kContext, english.toUtf8().constData());
    if (found != english) return found;
    static const QList<Pattern> patterns = ReadPatterns();
    for (const Pattern& pattern : patterns) {
        if (!english.contains(pattern.longest)) continue;
        const QRegularExpressionMatch match = pattern.expression.match(english);
        if (!match.hasMatch()) continue;
        return Filled(QCoreApplication::translate(kContext, pattern.source.constData()), pattern,
                      match);
    }
    return english;
}

QString ShownValue(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .replace(QLatin1String(kInfinite.data()), Shown(kInfinite));
}

bool IsInfinite(const QString& text) {
    const QString word = text.trimmed();
    return word == QLatin1String(kInfinite.data()) || word == Shown(kInfinite);
}

QString StepCaption(const QString& verb, std::string_view step) {
    if (step.empty()) return verb;
    //: A verb such as Undo, and the name of the step that it takes back
    return QCoreApplication::translate("kelvro", "%1 %2")
        .arg(verb, Shown(step).replace('&', QLatin1String("&&")));
}

}  // namespace kelvro
