#pragma once

#include <QBoxLayout>
#include <QString>

#include "ui/fields.h"

namespace kelvro {

/// A push, radio or check button at the end of a layout, with its name, caption and hint.
template <typename Button>
Button* AddButton(QBoxLayout& layout, const char* name, const QString& caption,
                  const QString& hint) {
    auto* button = new Button(caption);
    button->setObjectName(QLatin1String(name));
    SetHint(*button, hint);
    layout.addWidget(button);
    return button;
}

}  // namespace kelvro
