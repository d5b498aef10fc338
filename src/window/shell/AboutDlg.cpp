#include "window/shell/AboutDlg.h"

#include "core/shell/ProgramCommit.h"
#include "core/shell/ProgramIdentity.h"
#include "core/shell/TitleText.h"
#include "core/sources/SystemTables.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tremlo {

namespace {

constexpr int kTextWidth = 460;

const QString kHazardNotice = QStringLiteral(
    "断層データと地震活動モデルは、国立研究開発法人防災科学技術研究所の地震ハザードステーション J-SHIS "
    "から取得しま"
    "す。取得したデータの利用と公表には J-SHIS "
    "の利用規約が適用されます。成果に用いる場合は出典を明示してください。");

void AddText(QVBoxLayout* column, const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  column->addWidget(label);
}

}  // namespace

CAboutDlg::CAboutDlg(const ProgramFolders& folders, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("aboutDlg"));
  setWindowTitle(QStringLiteral("バージョン情報"));
  auto* picture = new QLabel(this);
  picture->setPixmap(QIcon(QStringLiteral(":/shell/tremlo.svg")).pixmap(QSize(64, 64), devicePixelRatioF()));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(12);
  AddText(texts, QStringLiteral("version"),
          QStringLiteral("Tremlo\n") + AboutVersionText(kVersionMajor, kVersionMinor));
  if (const QString commit = QString::fromLatin1(kProgramCommit); !commit.isEmpty())
    AddText(texts, QStringLiteral("commit"), QStringLiteral("コミット：") + commit);
  AddText(texts, QStringLiteral("legalLine"), LegalLine());
  AddText(texts, QStringLiteral("hazardNotice"), kHazardNotice);
  AddText(texts, QStringLiteral("tablePlaces"), QStringLiteral("使用中の表\n") + TablePlacesText(folders));
  const std::vector<QString> sampleFolders = SampleTableFolders(folders);
  if (!sampleFolders.empty())
    AddText(texts, QStringLiteral("sampleTables"),
            SampleTablesText(sampleFolders) +
                QStringLiteral("\n設計には公表された表に置き換えて使用してください。"));
  auto* row = new QHBoxLayout;
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addLayout(texts);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("ok"));
  ok->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* column = new QVBoxLayout(this);
  column->addLayout(row);
  column->addWidget(buttons);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace tremlo
