#include "company/master_files.h"

#include <QFileDialog>

using namespace Qt::StringLiterals;

MasterFiles AskForFiles() {
    return {[](QWidget* over) {
                return QFileDialog::getOpenFileName(over, u"Pilih foto"_s, {},
                                                    u"Gambar (*.jpg *.jpeg *.png *.gif *.bmp)"_s);
            },
            [](QWidget* over) {
                return QFileDialog::getOpenFileName(over, u"Impor karyawan"_s, {}, u"CSV (*.csv *.txt)"_s);
            },
            [](QWidget* over) {
                return QFileDialog::getSaveFileName(over, u"Ekspor"_s, {}, u"Excel (*.xlsx);;CSV (*.csv)"_s);
            }};
}
