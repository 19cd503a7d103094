#pragma once

/// Leaves out of the messages what the toolkit says for every window on a platform without a display: that
/// it cannot raise windows, has no place for the session's files and so on.
void QuietPlatform();
