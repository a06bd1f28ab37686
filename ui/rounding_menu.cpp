#include "ui/rounding_menu.h"

#include <QAction>
#include <QWidget>
#include <utility>

#include "ui/design_session.h"

namespace kelvro {

void AddRounding(QWidget& widget, DesignSession& session,
                 std::function<std::optional<PartRef>()> part) {
    const auto add = [&](const char* name, const QString& text, auto change) {
        auto* action = new QAction(text, &widget);
        action->setObjectName(QLatin1String(name) + widget.objectName());
        QObject::connect(action, &QAction::triggered, &session, [part, change] {
            if (const auto rounded = part()) change(*rounded);
        });
        widget.addAction(action);
    };
    const auto round = [&session](Rounding rounding) {
        return [&session, rounding](const PartRef& rounded) { session.round(rounded, rounding); };
    };
    add("RoundDown", QObject::tr("Round &down"), round(Rounding::Down));
    add("RoundUp", QObject::tr("Round &up"), round(Rounding::Up));
    add("RoundNearest", QObject::tr("Round to &nearest"), round(Rounding::Nearest));
    add("RoundUndo", QObject::tr("Undo &rounding"),
        [&session](const PartRef& rounded) { session.unround(rounded); });
}

}  // namespace kelvro
