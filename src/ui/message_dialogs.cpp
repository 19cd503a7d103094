#include "ui/message_dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString ProgramTitle = u"Time Attendance - Korvane"_s;

QMessageBox::Icon BoxIcon(Dialogs::Icon icon) {
    switch (icon) {
    case Dialogs::Icon::Information:
        return QMessageBox::Information;
    case Dialogs::Icon::Exclamation:
        return QMessageBox::Warning;
    case Dialogs::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

void MessageDialogs::Show(Icon icon, const QString& text) {
    QMessageBox box(BoxIcon(icon), ProgramTitle, text, QMessageBox::Ok, QApplication::activeWindow());
    // What is shown is text, whatever characters a value in it has.
    box.setObjectName(u"MessageBox"_s);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Ok)->setText(u"&OK"_s);
    box.exec();
}
