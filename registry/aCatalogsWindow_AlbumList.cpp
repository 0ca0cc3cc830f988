#include "AlbumLabel.h"
#include "AlbumListFile.h"
#include "TextStreams.h"
#include "Yield.h"
#include "aCatalogsWindow.h"

namespace folimark {

void aCatalogsWindow::Event_Activate() {
    if (Opened) {
        Opened = false;
        TextOutputStream::RemoveLeftovers(AlbumListFile()); // No other application works on it.
        GetCatalogList(AlbumListFile());
    }
    CatalogsToolBar()->Enabled(true);
    EnableCatalogButtons();
}

void aCatalogsWindow::GetCatalogList(const Ref<FolderItem>& f) {
    const auto rows = UseRows(); // A save of half a list would lose the other half.
    TheListBox()->DeleteAllRows();
    CatalogWindows.Redim(-1);
    std::int64_t n = 1;
    if (f->Gone()) {
        TextOutputStream::Create(f)->Close();
        return;
    }
    const Ref<TextInputStream> stream = TextInputStream::Open(f);
    while (!stream->EOF()) {
        ++n;
        const std::string line = stream->ReadLine(nullptr);
        TheListBox()->AddRow({MakeCatalogLabel(line)});
        TheListBox()->RowTag(TheListBox()->LastIndex(), line);
        CatalogWindows.Append({});
        RuntimeBackgroundTask();
    }
    stream->Close();
    FitHeight(n);
}

void aCatalogsWindow::PutCatalogList(const Ref<FolderItem>& f) {
    const auto rows = UseRows();
    const Ref<TextOutputStream> stream = TextOutputStream::Create(f);
    for (std::int64_t r = 0; r <= TheListBox()->LastIndex(); ++r) {
        stream->WriteLine(TheListBox()->RowTag(r));
        RuntimeBackgroundTask();
    }
    stream->Close();
}

std::string aCatalogsWindow::MakeCatalogLabel(const std::string& path) const {
    return AlbumLabelOf(path);
}

} // namespace folimark
