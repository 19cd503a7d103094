#pragma once

#include <QTranslator>

/// The toolkit's own words, on the menus of its fields and on standard buttons, in Indonesian. Install it in
/// the application once.
class StandardTexts : public QTranslator {
    Q_OBJECT
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
};
