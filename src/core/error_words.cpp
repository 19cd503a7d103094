#include "core/error_words.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words {
    ErrorKind kind;
    /// "%1" and "%2" stand for the error's details. Details without a place follow, each on a line of its
    /// own.
    QStringView text;
};

using enum ErrorKind;

constexpr Words AllWords[] = {
    {Told, u""},
    {Conflict, u"Data %1 sudah diubah dari komputer lain. Tidak ada yang disimpan. Muat ulang data lalu "
               u"ulangi."},
    {CardChanged, u"Kartu %1 (%2, %3):"},
    {CardOfOther, u"Kartu %1 adalah kartu karyawan %2. Tidak ada yang disimpan."},
    {CardInUse, u"Kartu %1 sudah dipakai untuk tanggal %2. Tidak ada yang disimpan."},

    {QuoteInText, u"Perintah database ditolak: teks mengandung tanda kutip (')."},
    {QuoteInValue, u"Perintah database ditolak: isian mengandung tanda kutip (')."},
    {TextNotClosed, u"Perintah database ditolak: tanda kutip tidak ditutup."},
    {DateNotClosed, u"Perintah database ditolak: tanggal tidak ditutup dengan #."},
    {BracketNotClosed, u"Perintah database ditolak: nama tidak ditutup dengan ]."},
    {NameNotClosed, u"Perintah database ditolak: nama tidak ditutup."},
    {BracketInName, u"Perintah database ditolak: nama mengandung ]."},
    {SecondStatement, u"Perintah database ditolak: hanya satu perintah yang boleh dijalankan."},
    {Comment, u"Perintah database ditolak: komentar tidak diperbolehkan."},
    {NotADate, u"Perintah database ditolak: \"%1\" bukan tanggal."},
    {OneTextNeeded, u"Perintah database ditolak: %1 memerlukan satu teks."},
    {NoTableName, u"Perintah database ditolak: tidak ada nama tabel."},
    {UnknownColumn, u"Kolom %1 tidak ada dalam tabel %2."},

    {Failed, u"Perintah database gagal. (%1)"},
    {Locked, u"Database sedang dikunci oleh program lain. Tunggu sebentar lalu ulangi; bila tetap terjadi, "
             u"tutup program lain yang memakai database ini. (%1)"},
    {ReadOnly,
     u"Database hanya dapat dibaca, tidak dapat ditulis. Periksa hak tulis pada file dan foldernya. "
     u"(%1)"},
    {FileMoved, u"File database sudah dipindahkan, dihapus atau diganti. Tidak ada yang disimpan. Tutup "
                u"program ini lalu buka lagi. (%1)"},
    {ReadOrWrite, u"Database tidak dapat dibaca atau ditulis. Periksa disk dan jaringan. (%1)"},
    {Damaged, u"File database rusak atau terpotong. Hentikan pemakaian dan pulihkan dari cadangan. (%1)"},
    {DiskFull, u"Disk penuh. Kosongkan ruang pada disk lalu ulangi. (%1)"},
    {CannotOpen, u"File database tidak dapat dibuka. Periksa apakah file ada dan hak aksesnya. (%1)"},
    {Constraint,
     u"Data ditolak karena tidak sesuai aturan database (isi ganda atau bentuk yang salah). (%1)"},
    {NoDatabase, u"File ini bukan database. Periksa nama file atau pulihkan dari cadangan. (%1)"},

    {FileMissing, u"File database tidak ditemukan: %1\nPeriksa apakah file itu ada dan dapat dibaca."},
    {FileExists, u"File %1 sudah ada. Pilih nama lain."},
    {FileNotMade, u"File %1 tidak dapat dibuat: %2"},
    {Foreign,
     u"File ini bukan database absensi (atau masih kosong): %1\nPeriksa nama file atau pulihkan dari "
     u"cadangan."},
    {Newer, u"Database ini dibuat oleh program yang lebih baru (versi %1; program ini mengenal sampai versi "
            u"%2). Pasang program yang terbaru."},
    {Incomplete, u"Database tidak lengkap, tidak ditemukan: %1.\nPulihkan database dari cadangan."},
    {CopyNotMade, u"Salinan database tidak dapat dibuat: %1"},

    {FileUnreadable, u"File %1 tidak dapat dibaca: %2"},
    {NoTextFile, u"File %1 bukan file teks. Simpan dari lembar kerja sebagai CSV (UTF-8), lalu ulangi."},
    {QuoteOpen, u"File %1, baris %2: tanda petik dua tidak ditutup. Perbaiki baris itu, lalu ulangi."},
    {TooManyRows, u"Lembar kerja hanya memuat %1 baris. Simpan sebagai CSV."},
    {NoSuchTable, u"Tidak ada tabel %1 dalam database ini."},

    {AccessForeign, u"File %1 bukan database Access. Periksa nama filenya."},
    {AccessProtected,
     u"Database Access %1 dilindungi kata sandi. Buka di Access, hapus kata sandinya, lalu ulangi."},
    {AccessDamaged, u"Database Access %1 rusak. Perbaiki di Access (Compact and Repair), lalu ulangi. (%2)"},
    {NoTables, u"File ini tidak berisi tabel absensi. Periksa nama filenya."},

    {NumberTooLarge, u"Angka terlalu besar: %1."},
    {AmountTooLarge, u"Jumlah terlalu besar: %1 jam x %2."},
};

consteval bool EveryKindHasItsWords() {
    int next = 0;
    for (const Words& words : AllWords) {
        if (static_cast<int>(words.kind) != next++)
            return false;
    }
    return next == ErrorKindCount;
}
static_assert(EveryKindHasItsWords());

QString Filled(QStringView text, const QStringList& details) {
    QString filled;
    qsizetype placed = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] != u'%') {
            filled += text[at];
            continue;
        }
        const qsizetype place = text[++at].digitValue();
        filled += details.value(place - 1);
        placed = std::max(placed, place);
    }
    for (const QString& detail : details.sliced(std::min(placed, details.size())))
        filled += u'\n' + detail;
    return filled;
}

/// A sentence for each changed field of a card. What was typed over it is null for nothing.
QString ChangesText(const QStringList& details) {
    const auto shown = [](const QString& value) { return value.isEmpty() ? u"kosong"_s : value; };
    QStringList sentences;
    bool typed = false;
    for (qsizetype at = 3; at + 2 < details.size(); at += 3) {
        sentences << u"%1 sudah diganti komputer lain menjadi %2."_s.arg(details[at], shown(details[at + 1]));
        if (details[at + 2].isNull())
            continue;
        sentences.back() += u" Yang Anda ketik (%1) tidak disimpan."_s.arg(shown(details[at + 2]));
        typed = true;
    }
    if (!typed)
        sentences << u"Tidak ada yang disimpan."_s;
    return (sentences.size() == 1 ? u' ' : u'\n') + sentences.join(u'\n');
}

QString UserText(ErrorKind kind, const QString& description, const QStringList& details) {
    if (kind == CardChanged)
        return Filled(AllWords[static_cast<size_t>(kind)].text, details.first(3)) + ChangesText(details);
    return kind == Told ? description : Filled(AllWords[static_cast<size_t>(kind)].text, details);
}

} // namespace

QString UserText(const DatabaseFailure& failure) {
    return UserText(failure.kind, failure.description, failure.details);
}

QString UserText(const std::exception& error) {
    const auto* known = dynamic_cast<const ProgramError*>(&error);
    return known ? UserText(known->Kind(), known->Description(), known->Details())
                 : QString::fromUtf8(error.what());
}

QString UserText(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& kept) {
        return UserText(kept);
    }
}
