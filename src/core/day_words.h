#pragma once

#include "database/wall_time.h"

#include <QString>

/// A day as it is spoken of: "Senin, 23 November 2026".
QString DayInWords(Day day);
