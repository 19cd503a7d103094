#pragma once

#include <QPushButton>

/// A button that says what it opens: a picture, its caption as a title and a line of words below.
class CardButton : public QPushButton {
    Q_OBJECT
public:
    CardButton(const QString& picture, const QString& caption, const QString& line,
               QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont TitleFont() const;
};
