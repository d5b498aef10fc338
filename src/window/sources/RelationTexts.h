#pragma once

#include <QString>

namespace tremlo {

/// The dam attenuation relation in words and formulas, as the program computes it. The coefficients stand in
/// the tables beside the program; here they are named alone.

QString RelationFormulas();  ///< both forms, as HTML
QString RelationTerms();     ///< what the letters mean, as HTML
QString SpokenRelation();    ///< all of it as plain text, for those who do not see it

}  // namespace tremlo
