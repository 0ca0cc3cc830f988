#include "PlatformText.h"

#include "DisplayText.h"

#include <QStringList>

namespace folimark {
namespace {

const QString kCommandSign = QStringLiteral("⌘");
const QString kCommandKey = QStringLiteral("Ctrl+");

/// A name without blanks may be broken after so many characters, with a blank that has no width.
constexpr qsizetype kNameRun = 48;
const QString kBreakHere = QStringLiteral("\u200B");

} // namespace

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToText(const QString& text) {
    return text.toStdString();
}

QString AsDisplayed(std::string_view text) {
    return ToQString(ForDisplay(text));
}

QString WithPlatformKeys(std::string_view text) {
    return AsDisplayed(text).replace(kCommandSign, kCommandKey);
}

QString AsCaption(std::string_view text) {
    return WithPlatformKeys(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString AsToolTip(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    // Only rich text wraps in a tooltip.
    QString html = QStringLiteral("<p>");
    html += WithPlatformKeys(text).toHtmlEscaped().replace(QLatin1Char('\r'), QLatin1String("<br/>"));
    return html + QStringLiteral("</p>");
}

QString AsWholeName(const QString& displayed) {
    QString html = QStringLiteral("<p style=\"white-space:pre-wrap\">");
    for (qsizetype start = 0; start < displayed.size(); start += kNameRun) {
        html += (start > 0 ? kBreakHere : QString()) + displayed.mid(start, kNameRun).toHtmlEscaped();
    }
    return html + QStringLiteral("</p>");
}

QKeySequence AsShortcut(std::string_view shortcut) {
    constexpr std::string_view kCommand = "Cmd+";
    if (!shortcut.starts_with(kCommand)) {
        return {};
    }
    return QKeySequence(QStringLiteral("Ctrl+") + ToQString(shortcut.substr(kCommand.size())).toUpper());
}

} // namespace folimark
