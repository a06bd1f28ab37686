#pragma once

#include <QString>

class QWidget;

namespace kelvro {

enum class ChangedFileAnswer { SaveAnyway, SaveAs, Cancel };

/// Tells in a modal box that another program has saved the file since it was read or saved here,
/// and asks what is to become of it.
ChangedFileAnswer AskAboutChangedFile(const QString& file, QWidget* parent);

}  // namespace kelvro
