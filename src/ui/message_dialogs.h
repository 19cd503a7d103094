#pragma once

#include "core/dialogs.h"

/// Messages as boxes over the window that is in use.
class MessageDialogs : public Dialogs {
public:
    void Show(Icon icon, const QString& text) override;
    Answer Ask(const QString& question) override;
};
