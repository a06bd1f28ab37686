#pragma once

#include <QString>
#include <QStringList>

class QMenuBar;
class QWidget;

namespace kelvro {

/// Captions with one letter or digit each behind '&', none of them twice and none of `taken`: their
/// own where they have one that is free, else preferably the start of a word. A caption that finds
/// no letter loses its '&'.
QStringList WithUniqueMnemonics(const QStringList& captions, const QString& taken = {});

/// Gives the items of every menu of the bar letters of their own, and the bar's titles too.
void GiveMnemonics(QMenuBar& bar);

/// Gives every button below `root` that shows its caption a letter of its own, and every label that
/// leads to a field by a letter; letters of a menu bar are taken. Returns all letters in use.
QString GiveMnemonics(QWidget& root, const QString& taken = {});

/// Lets Tab enter each group of buttons of which one is chosen at that button, once one is chosen.
void EnterGroupsAtTheChosen(QWidget& root);

}  // namespace kelvro
