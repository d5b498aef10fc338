#pragma once

#include <QString>

namespace tremlo::pictures {

struct Places {
  QString pictures;  ///< folder that gets the pictures
  QString records;   ///< folder of the made-up records
  QString project;   ///< file of the worked example
};

}  // namespace tremlo::pictures
