#include "FolderItemDialog.h"

#include "ContentFit.h"
#include "Descriptor.h"
#include "FontMeasure.h"
#include "FrontFrame.h"
#include "MsgBox.h"
#include "PlatformText.h"
#include "RunDialog.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <fcntl.h>

namespace folimark {
namespace {

// The columns of the window system's list of files that say something about a folder are the names, at 0, and
// the dates.
constexpr int kSizeColumn = 1;
constexpr int kKindColumn = 2;

/// Enough for most names beside their dates, in units, on a screen that has the room.
constexpr QSize kSize(900, 540);
constexpr int kPlacesWidth = 170;
/// What window managers add to it, in logical pixels.
constexpr QSize kBorder(8, 32);

/// How many descriptors the dialog may need at once: a thread of its own that lists folders, and its watches.
constexpr std::size_t kDescriptors = 16;

/// The parts of the file system below which desktops, and people, mount disks.
const QStringList kMountFolders{QStringLiteral("/media/"), QStringLiteral("/run/media/"),
                                QStringLiteral("/mnt/")};

QString FirstFolder() {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

/// Where people keep their media: their own folders, then the disks that are mounted.
QList<QUrl> Places() {
    QStringList folders{QDir::homePath()};
    for (const QStandardPaths::StandardLocation location :
         {QStandardPaths::PicturesLocation, QStandardPaths::MusicLocation, QStandardPaths::MoviesLocation,
          QStandardPaths::DownloadLocation}) {
        folders += QStandardPaths::writableLocation(location);
    }
    for (const QStorageInfo& disk : QStorageInfo::mountedVolumes()) {
        const QString path = disk.rootPath();
        const auto holds = [&path](const QString& folder) {
            return (path + QLatin1Char('/')).startsWith(folder);
        };
        if (disk.isReady() && std::any_of(kMountFolders.begin(), kMountFolders.end(), holds)) {
            folders += path;
        }
    }
    folders += QDir::rootPath();
    folders.removeDuplicates(); // Someone without a folder for films has the home folder in its place.
    QList<QUrl> urls;
    for (const QString& folder : folders) {
        if (QFileInfo(folder).isDir()) {
            urls += QUrl::fromLocalFile(folder);
        }
    }
    return urls;
}

/// Without a descriptor the dialog doesn't fail to open, but ends the process.
bool AreDescriptorsFree() {
    std::array<Descriptor, kDescriptors> tried;
    return std::all_of(tried.begin(), tried.end(), [](Descriptor& descriptor) {
        descriptor = Descriptor(open("/", O_PATH | O_CLOEXEC));
        return bool(descriptor);
    });
}

/// The window system's dialog keeps a settings file of its own, with the folders that were visited. It gets a
/// place where none can be.
void KeepNoSettings() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

/// Only looks: nothing on the disk is made, renamed, deleted or dragged elsewhere. A desktop's own dialog is
/// told as far as it listens; the rest is about the parts of the window system's, which may be made as late
/// as when the dialog is shown.
class FolderDialog : public QFileDialog {
  public:
    FolderDialog(const QString& title, const QString& folder) : QFileDialog(nullptr, title, folder) {
        setFileMode(QFileDialog::Directory);
        setViewMode(QFileDialog::Detail);
        setOptions(QFileDialog::ShowDirsOnly | QFileDialog::ReadOnly);
        setSidebarUrls(Places());
        const QSize size(PixelsOf(kSize.width(), RowHeight()), PixelsOf(kSize.height(), RowHeight()));
        const QWidget* const front = FrontFrame();
        resize(size.boundedTo((front != nullptr ? front : this)->screen()->availableSize() - kBorder));
    }

  protected:
    void showEvent(QShowEvent* event) override {
        ForbidChanges();
        ShowWholeNames();
        for (const char* name : {"fileTypeLabel", "fileTypeCombo"}) {
            if (auto* widget = findChild<QWidget*>(QLatin1String(name))) {
                widget->hide(); // There are only folders to be seen.
            }
        }
        QFileDialog::showEvent(event);
    }

    /// What the line at the bottom says is what is chosen. While a path is typed the list selects what the
    /// path goes through; that may still be selected, and would be chosen instead.
    void accept() override {
        const auto* line = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* list = findChild<QTreeView*>(QStringLiteral("treeView"));
        if (line != nullptr && list != nullptr && !line->text().isEmpty()
            && selectedFiles() != QStringList{QDir::cleanPath(directory().absoluteFilePath(line->text()))}) {
            list->clearSelection();
        }
        QFileDialog::accept();
    }

  private:
    void ForbidChanges() {
        if (auto* newFolder = findChild<QToolButton*>(QStringLiteral("newFolderButton"))) {
            newFolder->hide();
        }
        for (const char* name : {"qt_new_folder_action", "qt_rename_action", "qt_delete_action"}) {
            if (auto* action = findChild<QAction*>(QLatin1String(name))) {
                action->setVisible(false);
            }
        }
        for (auto* view : findChildren<QAbstractItemView*>()) {
            view->setDragDropMode(QAbstractItemView::NoDragDrop);
        }
    }

    /// A name that is wider than the dialog can be scrolled.
    void ShowWholeNames() {
        if (auto* splitter = findChild<QSplitter*>()) {
            const int places = PixelsOf(kPlacesWidth, RowHeight());
            splitter->setSizes({places, width() - places});
        }
        if (auto* list = findChild<QTreeView*>(QStringLiteral("treeView"))) {
            list->hideColumn(kSizeColumn);
            list->hideColumn(kKindColumn);
            list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        }
    }
};

} // namespace

Ref<FolderItem> SelectFolderDialog::ShowModal() {
    if (!AreDescriptorsFree()) {
        MsgBox("Folders can’t be shown, since too many files are open. Please close an album and try again.");
        return {};
    }
    // People tend to choose neighbours, so the next dialog opens beside the folder that was chosen last.
    static QString lastFolder = FirstFolder();
    KeepNoSettings();
    FolderDialog dialog(ToQString(title_), lastFolder);
    dialog.setLabelText(QFileDialog::Accept, ToQString(actionButtonCaption_));
    dialog.setLabelText(QFileDialog::LookIn, ToQString(promptText_));
    if (RunDialog(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    const QString folder = dialog.selectedFiles().first();
    lastFolder = QFileInfo(folder).absolutePath();
    return FolderItem::FromNativePath(QFile::encodeName(folder).toStdString());
}

} // namespace folimark
