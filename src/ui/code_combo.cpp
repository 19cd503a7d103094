#include "ui/code_combo.h"

#include <QComboBox>

void OfferCodes(QComboBox& box, const std::vector<CodeName>& codes) {
    const std::optional<QString> chosen = ChosenCode(box);
    box.clear();
    box.addItem(AllChoice.toString(), AllChoice.toString());
    for (const CodeName& entry : codes) {
        box.addItem(entry.name.isEmpty() ? entry.code : entry.name, entry.code);
        if (entry.code == chosen)
            box.setCurrentIndex(box.count() - 1);
    }
}

std::optional<QString> ChosenCode(const QComboBox& box) {
    return box.currentIndex() > 0 ? std::optional(box.currentData().toString()) : std::nullopt;
}
