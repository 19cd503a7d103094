#include "ui/standard_texts.h"

#include "support/test_company.h"
#include "tour/keyboard_user.h"
#include "ui/message_dialogs.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

TEST(StandardTexts, TheMenuOfAFieldIsIndonesian) {
    StandardTexts texts;
    QApplication::installTranslator(&texts);
    QLineEdit field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    QApplication::removeTranslator(&texts);
    QStringList entries;
    for (const QAction* action : menu->actions())
        entries << action->text().section(u'\t', 0, 0);
    EXPECT_EQ(entries, (QStringList{u"&Urungkan"_s, u"&Ulangi"_s, u""_s, u"&Potong"_s, u"&Salin"_s,
                                    u"&Tempel"_s, u"Hapus"_s, u""_s, u"Pilih semua"_s}));
}

TEST(MessageDialogs, EnterGivesTheSuggestedAnswerAndEscNone) {
    using enum Dialogs::Answer;
    MessageDialogs boxes;
    KeyboardUser user;
    for (const auto& [key, suggested, answer] :
         {std::tuple{u"⏎", Yes, Yes}, {u"⏎", No, No}, {u"⏎", Cancel, Cancel}, {u"⎋", Yes, Cancel}}) {
        user.WhenIn(u"MessageBox"_s, [key = key](QWidget&) { Keys(key); });
        EXPECT_EQ(boxes.Ask(u"Simpan?"_s, suggested), answer);
    }
}
