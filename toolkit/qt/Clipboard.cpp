#include "Clipboard.h"

#include "PlatformText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace folimark {

void CopyToClipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQString(text));
}

} // namespace folimark
