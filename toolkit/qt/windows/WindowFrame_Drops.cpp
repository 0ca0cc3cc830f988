#include "EventGate.h"
#include "FolderItem.h"
#include "Window.h"
#include "WindowFrame.h"

#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace folimark {
namespace {

/// The paths of the folders that are dragged; none if anything else is dragged with them.
QStringList FoldersIn(const QMimeData& data) {
    QStringList folders;
    for (const QUrl& url : data.urls()) {
        if (!url.isLocalFile() || !QFileInfo(url.toLocalFile()).isDir()) {
            return {};
        }
        folders += url.toLocalFile();
    }
    return folders;
}

} // namespace

bool WindowFrame::AcceptFolders(QDropEvent& event) const {
    // Where the drag comes from, a move would end in the folder's removal.
    const Qt::DropActions possible = event.possibleActions();
    const Qt::DropAction action = possible.testFlag(Qt::LinkAction)   ? Qt::LinkAction
                                  : possible.testFlag(Qt::CopyAction) ? Qt::CopyAction
                                                                      : Qt::IgnoreAction;
    if (action == Qt::IgnoreAction || window_ == nullptr || !window_->AcceptsFolders()
        || FoldersIn(*event.mimeData()).isEmpty()) {
        event.ignore();
        return false;
    }
    event.setDropAction(action);
    event.accept();
    return true;
}

void WindowFrame::dragEnterEvent(QDragEnterEvent* event) {
    AcceptFolders(*event);
}

void WindowFrame::dragMoveEvent(QDragMoveEvent* event) {
    AcceptFolders(*event);
}

void WindowFrame::dropEvent(QDropEvent* event) {
    if (!AcceptFolders(*event)) {
        return;
    }
    activateWindow();
    // The other application waits for the end of the drop, not for what becomes of the folders.
    QTimer::singleShot(0, this,
                       [self = QPointer<WindowFrame>(this), folders = FoldersIn(*event->mimeData())] {
                           for (const QString& folder : folders) {
                               if (!self || self->window_ == nullptr) {
                                   return;
                               }
                               const Ref<Window> window(self->window_);
                               EnterApplication([&] {
                                   window->Event_DropFolder(
                                       FolderItem::FromNativePath(QFile::encodeName(folder).toStdString()));
                               });
                           }
                       });
}

} // namespace folimark
