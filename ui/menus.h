#pragma once

#include "core/series.h"
#include "design/page.h"

namespace kelvro {

class TSDIAppForm;

/// Fills the menu bar of the main window.
void BuildMenus(TSDIAppForm& form);

/// Adds the tool bar of the main window.
void BuildSpeedPanel(TSDIAppForm& form);

/// Checks the menu item of a page and unchecks those of all others.
void CheckPageItem(TSDIAppForm& form, const Page& page);

/// Checks the menu item of a series and unchecks the others.
void CheckSeriesItem(TSDIAppForm& form, Series series);

}  // namespace kelvro
