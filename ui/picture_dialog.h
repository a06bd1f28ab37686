#pragma once

#include <QString>

class QWidget;

namespace kelvro {

/// Asks under which name a picture is to be saved, one filter for each format. The ending follows
/// the chosen filter; a known one that is typed counts, any other name gets that of the filter.
/// Empty when the user cancels. `name` is proposed; its ending says which filter comes first.
QString AskForPictureFile(QWidget& parent, const char* objectName, const QString& name);

/// Asks whether an existing file may be replaced.
bool MayReplace(QWidget& parent, const QString& file);

}  // namespace kelvro
