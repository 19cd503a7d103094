#pragma once

#include "core/dialogs.h"

/// Messages as boxes over the window that is in use.
class MessageDialogs : public Dialogs {
public:
    void Show(Icon icon, const QString& text) override;
    using Dialogs::Ask;
    Answer Ask(const QString& question, Answer suggested) override;
};
