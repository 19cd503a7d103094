#include "ui/standard_texts.h"

#include "support/test_company.h"

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
