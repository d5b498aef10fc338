#pragma once

#include "core/project/ScreenId.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tremlo {

/// A place of the manual: the name of a chapter, and the heading of one of its sections; empty for the
/// chapter's beginning.
struct ManualPlace {
  QString chapter;
  QString section;

  bool operator==(const ManualPlace&) const = default;
};

/// Where the manual describes a screen; its beginning when none is on display.
ManualPlace ManualPlaceOf(std::optional<ScreenId> screen);

/// The page, from 1, of a place by the table that stands beside the manual: a line each, "chapter" or
/// "chapter/heading", a tab, the page. Of a section that is not in it, the page of its chapter. Nothing when
/// that is missing too; lines that are no such line count as missing.
std::optional<int> ManualPageOf(const QByteArray& table, const ManualPlace& place);

}  // namespace tremlo
