#include "ui/standard_texts.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString StandardTexts::translate(const char* context, const char* sourceText, const char*, int) const {
    static const QHash<QByteArray, QString> texts{
        {"&Undo", u"&Urungkan"_s},
        {"&Redo", u"&Ulangi"_s},
        {"Cu&t", u"&Potong"_s},
        {"&Copy", u"&Salin"_s},
        {"&Paste", u"&Tempel"_s},
        {"Delete", u"Hapus"_s},
        {"Select All", u"Pilih semua"_s},
        {"&Select All", u"Pilih &semua"_s},
        {"&Step up", u"&Naikkan"_s},
        {"Step &down", u"&Turunkan"_s},
        {"OK", u"OK"_s},
        {"Cancel", u"Batal"_s},
        {"&Cancel", u"&Batal"_s},
        {"&Yes", u"&Ya"_s},
        {"&No", u"&Tidak"_s},
        {"Close", u"Tutup"_s},
    };
    static const QList<QByteArray> contexts{"QLineEdit",      "QWidgetTextControl", "QAbstractSpinBox",
                                            "QPlatformTheme", "QDialogButtonBox",   "QMessageBox"};
    return contexts.contains(context) ? texts.value(sourceText) : QString();
}
