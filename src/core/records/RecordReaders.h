#pragma once

#include "core/records/Record.h"
#include "core/records/RecordText.h"

namespace tremlo {

// The readers, one a format. Each fills components, provenance, warnings, notes and questions of a reading
// whose format is set, or its error.

/// K-NET and KiK-net ASCII: one component, whole numbers times a factor. Layout of the header: NIED, "About
/// K-NET ASCII format".
void ReadKnetAscii(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// K-NET CSV, for KiK-net too: three or six components in gal.
void ReadKnetCsv(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// CSV of the Japan Meteorological Agency: up to three components, known by the names above their columns.
void ReadJmaCsv(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// AT2 and its kin: one component, read across.
void ReadAt2(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// COSMOS v1.20: channels of acceleration one after the other.
void ReadCosmos(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// CSMIP/CDMG V2: of each channel the acceleration alone. V1 is refused.
void ReadCsmip(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// GeoNet V1A and V2A: of each component the acceleration alone.
void ReadGeoNet(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// The program's own wave file, read as everywhere in the program.
void ReadOwnWave(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

/// Numbers in columns under a heading of any kind.
void ReadFreeText(const RecordText& text, const RecordAnswers& answers, RecordReading& reading);

}  // namespace tremlo
