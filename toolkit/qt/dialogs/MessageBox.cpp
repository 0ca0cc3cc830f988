#include "MessageBox.h"

#include "NativeApplication.h"
#include "PlatformText.h"
#include "RunDialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

namespace folimark {
namespace {

/// The widest that a text gets before it wraps, and the most that a name takes of it, in characters.
constexpr int kMostTextWidth = 90;
constexpr int kMostNameWidth = 66;
/// More lines than this scroll.
constexpr int kMostLines = 12;
constexpr QSize kScrolledSize(560, 280);

/// Names stand between quotation marks.
QString WithShortNames(QString text, const QFontMetrics& metrics) {
    static const QRegularExpression kName(QStringLiteral("“([^”]*)”"));
    for (QRegularExpressionMatch match = kName.match(text); match.hasMatch();
         match = kName.match(text, match.capturedEnd())) {
        const QString name = metrics.elidedText(match.captured(1), Qt::ElideMiddle,
                                                kMostNameWidth * metrics.averageCharWidth());
        if (name.size() < match.capturedLength(1)) {
            text.replace(match.capturedStart(1), match.capturedLength(1), name);
            match = kName.match(text, match.capturedStart());
        }
    }
    return text;
}

int WidthOf(const QLabel& label) {
    return label.fontMetrics().size(Qt::TextExpandTabs, label.text()).width();
}

} // namespace

MessageBox::MessageBox(const std::string& message, const std::string& explanation) {
    setWindowTitle(DisplayName());
    setTextFormat(Qt::PlainText);
    setText(WithShortNames(AsDisplayed(message), fontMetrics()));
    setInformativeText(WithShortNames(AsDisplayed(explanation), fontMetrics()));
    if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        label->setTextFormat(Qt::PlainText); // The box doesn't pass it on.
    }
}

void MessageBox::Run() {
    FitWidth();
    MakeScrollable();
    RunDialog(*this);
}

void MessageBox::FitWidth() {
    int width = 0;
    for (const char* name : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
        if (const auto* label = findChild<QLabel*>(QLatin1String(name))) {
            width = std::max(width, WidthOf(*label));
        }
    }
    // Left to itself the box wraps its texts as soon as it can.
    const auto* icon = findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    const int beside = icon == nullptr ? 0 : 2 * icon->sizeHint().width();
    const int most =
        std::min(kMostTextWidth * fontMetrics().averageCharWidth(), screen()->availableSize().width() / 2);
    if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
        grid->addItem(new QSpacerItem(std::min(width, most) + beside, 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

void MessageBox::MakeScrollable() {
    auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (label == nullptr || grid == nullptr || label->text().count(QLatin1Char('\n')) < kMostLines) {
        return;
    }
    auto* scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    delete grid->replaceWidget(label, scroller);
    label->setWordWrap(false);
    scroller->setWidget(label);
    scroller->setMinimumSize(kScrolledSize);
}

} // namespace folimark
