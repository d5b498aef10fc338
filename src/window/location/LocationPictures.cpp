#include "window/location/LocationPictures.h"

#include "window/graphs/ExpButton.h"
#include "window/graphs/NamedControl.h"

#include <QtGlobal>

// The name that it makes lies outside every namespace.
static void InitLocation() {
  Q_INIT_RESOURCE(location);
}

namespace tremlo {

namespace {

constexpr int kButtonSide = 32;

QIcon Picture(const QString& name) {
  return QIcon(QStringLiteral(":/location/") + name + QStringLiteral(".svg"));
}

}  // namespace

void LoadLocationPictures() {
  InitLocation();
}

CExpButton* MakePictureButton(const char* objectName, const QString& picture, const QString& toolTip) {
  LoadLocationPictures();
  auto* const button = Named(new CExpButton, objectName, toolTip);
  button->SetStyle(CExpButton::kPictureStyle);
  button->SetPictures(Picture(picture + QStringLiteral("_up")), Picture(picture + QStringLiteral("_down")));
  button->setToolTip(toolTip);
  button->setFixedSize(kButtonSide, kButtonSide);
  return button;
}

}  // namespace tremlo
