#include "GlobalData.h"

namespace folimark::GlobalData {

Ref<FolderItem> CatalogFolder;
Ref<Window> CatalogsWindow;
bool CancelButtonPressed = false;
std::string HighlightPhrase1;
std::string HighlightPhrase2;
std::int64_t HighlightType = kFirstAlone;
bool HighlightOK = false;

} // namespace folimark::GlobalData
