#include "ui/help/page_hints.h"

#include "design/page.h"
#include "ui/fields.h"

namespace kelvro {

namespace {

QString Section(const char* heading, std::string_view text) {
    return QStringLiteral("<h3>%1</h3><p>%2</p>")
        .arg(QString::fromLatin1(heading), ToQString(text));
}

}  // namespace

QString HintHtml(const Page& page) {
    const CircuitHint& hint = page.hint;
    return Section("What it is good for", hint.use) + Section("Limits", hint.limits) +
           Section("Pads and parasitics", hint.parasitics) + Section("Typical values", hint.values);
}

}  // namespace kelvro
