#include "ui/message_dialogs.h"

#include "ui/busy_pointer.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int LeastWidth = 380;
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

void SetUp(QMessageBox& box) {
    box.setObjectName(u"MessageBox"_s);
    // What is shown is text, whatever characters a value in it has.
    box.setTextFormat(Qt::PlainText);
    // Wide enough for the program's whole title; a least width of the text would cut what is longer.
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(LeastWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

void MessageDialogs::Show(Icon icon, const QString& text) {
    const ReadyPointer ready;
    QMessageBox box(BoxIcon(icon), ProgramTitle, text, QMessageBox::Ok, QApplication::activeWindow());
    SetUp(box);
    box.button(QMessageBox::Ok)->setText(u"&OK"_s);
    box.exec();
}

Dialogs::Answer MessageDialogs::Ask(const QString& question, Answer suggested) {
    QMessageBox box(QMessageBox::Question, ProgramTitle, question,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QApplication::activeWindow());
    SetUp(box);
    box.button(QMessageBox::Yes)->setText(u"&Ya"_s);
    box.button(QMessageBox::No)->setText(u"&Tidak"_s);
    box.button(QMessageBox::Cancel)->setText(u"&Batal"_s);
    box.setDefaultButton(suggested == Answer::Yes  ? QMessageBox::Yes
                         : suggested == Answer::No ? QMessageBox::No
                                                   : QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}
