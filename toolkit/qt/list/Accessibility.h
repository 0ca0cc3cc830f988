#pragma once

namespace folimark {

class ListView;

/// Makes the toolkit's own widgets known to assistive technology. Called once, at start.
void InstallAccessibility();

/// Tells assistive technology which row of the list is selected now.
void AnnounceSelection(ListView& view);

} // namespace folimark
