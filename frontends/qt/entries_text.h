#pragma once

#include <QAbstractItemModel>
#include <QStringList>
#include <string>

#include "forms/control.h"

/// The entries of a control and those of the widget that shows them.
namespace kvrnstep::qt {

QStringList entryTexts(const forms::Entries& entries);
bool sameEntries(const QAbstractItemModel& shown, const forms::Entries& entries);
/// Separated by one blank.
std::u16string joinedEntries(const QAbstractItemModel& shown);

}  // namespace kvrnstep::qt
