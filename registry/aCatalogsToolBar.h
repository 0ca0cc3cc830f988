#pragma once

#include "Toolbar.h"

namespace folimark {

/// The toolbar of the Albums window, which makes its items.
class aCatalogsToolBar : public Toolbar {};

} // namespace folimark
