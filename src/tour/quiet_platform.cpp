#include "tour/quiet_platform.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace {

QtMessageHandler usualHandler = nullptr;

/// These messages have no category of their own by which they could be turned off.
void LeaveOutPlatform(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    static constexpr QStringView noise[] = {u"This plugin does not support",
                                            u"QStandardPaths: XDG_RUNTIME_DIR"};
    if (std::ranges::none_of(noise, [&text](QStringView begin) { return text.startsWith(begin); }))
        usualHandler(type, context, text);
}

} // namespace

void QuietPlatform() {
    usualHandler = qInstallMessageHandler(LeaveOutPlatform);
}
