#include "ui/help/page_hints.h"

#include "design/page.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

QString Section(const char* heading, std::string_view text) {
    return QStringLiteral("<h3>%1</h3><p>%2</p>").arg(Shown(heading), Shown(text));
}

}  // namespace

QString HintHtml(const Page& page) {
    const CircuitHint& hint = page.hint;
    return Section(QT_TRANSLATE_NOOP("kelvro", "What it is good for"), hint.use) +
           Section(QT_TRANSLATE_NOOP("kelvro", "Limits"), hint.limits) +
           Section(QT_TRANSLATE_NOOP("kelvro", "Pads and parasitics"), hint.parasitics) +
           Section(QT_TRANSLATE_NOOP("kelvro", "Typical values"), hint.values);
}

}  // namespace kelvro
