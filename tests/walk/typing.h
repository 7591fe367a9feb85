#pragma once

#include "tests/walk/targets.h"

#include <QString>
#include <QStringList>

namespace walk
{

/// What there is to find in the database: plates of vehicles that a user can have in mind.
void setPlates(const QStringList &plates);

/// A text that fits the named control, as a user who knows the work would type it.
QString fitting(const QString &control, const Draw &draw);

/// Any text at all: letters, digits, dates, amounts, apostrophes, nothing.
QString anything(const Draw &draw);

} // namespace walk
