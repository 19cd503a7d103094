#include "editing/save_questions.h"

#include "compute/money.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using Answer = Dialogs::Answer;

bool MayStoreReversed(Dialogs& dialogs, const QString& tcid, const QStringList& reversed) {
    return reversed.isEmpty()
           || dialogs.Ask(u"Kartu %1:\n%2\nSimpan juga?"_s.arg(tcid, reversed.join(u'\n')), Answer::No)
                  == Answer::Yes;
}

bool MayCutNumber(Dialogs& dialogs, const QString& typed) {
    const bool losesDigits = std::ranges::any_of(UnreadPart(typed), [](QChar c) { return c.isDigit(); });
    return !losesDigits
           || dialogs.Ask(
                  u"%1 akan disimpan sebagai %2. Simpan?\nTulis pecahan dengan titik, dan ribuan tanpa "
                  "tanda."_s.arg(typed.trimmed(), Money::FromText(typed).Text()),
                  Answer::No)
                  == Answer::Yes;
}

Answer OfferOut(Dialogs& dialogs) {
    return dialogs.Ask(u"Jam keluar diisi tetapi status masih IN. Ubah status menjadi OUT?"_s, Answer::Yes);
}
