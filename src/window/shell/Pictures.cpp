#include "window/shell/Pictures.h"

#include <QtGlobal>

// The name that it makes lies outside every namespace.
static void InitPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace tremlo {

void LoadPictures() {
  InitPictures();
}

}  // namespace tremlo
