#include "AlbumLabel.h"
#include "ColonPath.h"
#include "MediaKind.h"
#include "Text.h"
#include "aListWindow.h"
#include "aListWindow_Columns.h"

namespace folimark {
namespace {

/// A file's size such that the order of the texts is the order of the sizes: the letters of the units rise
/// with them ("OB" stands for gigabytes, since "GB" wouldn't), and the number has its leading zeros.
std::string SizeText(double bytes) {
    struct Unit {
        double limit;
        double size;
        const char* prefix;
    };
    constexpr Unit kUnits[] = {
        {1e6, 1e3, "KB  "},
        {1e9, 1e6, "MB  "},
        {1e12, 1e9, "OB  "},
    };
    if (bytes < 1e3) {
        return "BY  " + Format(bytes, "000.0");
    }
    // Tenths are cut off, not rounded: 999,999 bytes must not become 1000.0 kilobytes.
    const auto tenths = [bytes](double unit) { return Floor(bytes / unit * 10.0) / 10.0; };
    for (const Unit& unit : kUnits) {
        if (bytes < unit.limit) {
            return unit.prefix + Format(tenths(unit.size), "000.0");
        }
    }
    return "TB " + Format(tenths(1e12), "000.0");
}

std::string KindText(const Ref<FolderItem>& file) {
    const MediaKind* kind = file ? KindOf(file->Type()) : nullptr;
    return kind != nullptr ? kind->word : "";
}

std::string DateText(const Ref<Date>& date) {
    return date ? date->SQLDate() : "";
}

} // namespace

void aListWindow::ListBoxAddRow(const Ref<FolderItem>& root, const Ref<FolderItem>& file) {
    const std::string path = file->AbsolutePath();
    std::string name = ReadableNames(
        ReplaceAll(GetCatalogPathWithoutTitle(root->AbsolutePath(), path), ":", std::string(kPathSeparator)));
    std::string created;
    std::string modified;
    std::string size = "0 MB";
    const Ref<FolderItem> found = GetFolderItem(path, 0);
    if (!found || !found->Exists()) {
        name = "(Media file not located!)";
    } else {
        created = DateText(found->CreationDate());
        modified = DateText(found->ModificationDate());
        if (modified == created) {
            modified = "";
        }
        size = SizeText(static_cast<double>(found->Length()));
    }
    const Ref<Listbox> list = TheListBox();
    list->AddRow({name, created, modified, size, KindText(found)});
    list->RowTag(list->LastIndex(), path);
}

std::string aListWindow::GetCatalogPathWithoutTitle(const std::string& rootPath,
                                                    const std::string& filePath) const {
    return filePath.starts_with(rootPath) ? filePath.substr(rootPath.size())
                                          : Right(filePath, Len(filePath) - Len(rootPath));
}

std::string aListWindow::MakeCatalogLabel(const std::string& path) const {
    return AlbumLabelOf(path);
}

} // namespace folimark
