#include "FolderItemDialog.h"

#include "Application.h"
#include "NativeApplication.h"
#include "PlatformText.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>

namespace folimark {
namespace {

QString FirstFolder() {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

} // namespace

Ref<FolderItem> SelectFolderDialog::ShowModal() {
    // People tend to choose neighbours, so the next dialog opens where the last one ended.
    static QString lastFolder = FirstFolder();
    QFileDialog dialog(nullptr, ToQString(title_), lastFolder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, ToQString(actionButtonCaption_));
    dialog.setLabelText(QFileDialog::LookIn, ToQString(promptText_));
    const bool chosen = RunDialog(dialog) == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    if (IsQuitting()) {
        throw EndException();
    }
    if (!chosen) {
        return {};
    }
    lastFolder = dialog.directory().absolutePath();
    return FolderItem::FromNativePath(QFile::encodeName(dialog.selectedFiles().first()).toStdString());
}

} // namespace folimark
