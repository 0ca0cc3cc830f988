#include "AboutBox.h"

#include "NativeApplication.h"
#include "PlatformText.h"
#include "RunDialog.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>

namespace folimark {
namespace {

constexpr int kIconSize = 96;

} // namespace

void ShowAboutBox(const std::string& description, const std::string& libraries) {
    QMessageBox box;
    const QString& name = DisplayName();
    box.setWindowTitle(QStringLiteral("About ") + name);
    box.setIconPixmap(QGuiApplication::windowIcon().pixmap(kIconSize));
    box.setTextFormat(Qt::RichText);
    box.setText(QStringLiteral("<h2>%1</h2><p>Version %2</p>")
                    .arg(name.toHtmlEscaped(), QCoreApplication::applicationVersion().toHtmlEscaped()));
    box.setInformativeText(
        QStringLiteral("<p>%1</p><p>%2</p>")
            .arg(ToQString(description).toHtmlEscaped(),
                 ToQString(libraries).arg(QString::fromLatin1(qVersion())).toHtmlEscaped()));
    box.addButton(QMessageBox::Close);
    RunDialog(box);
}

} // namespace folimark
