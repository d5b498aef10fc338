#include "window/shell/PropertyQa.h"

#include "window/graphs/ExpButton.h"
#include "window/graphs/NamedControl.h"
#include "window/shell/ForeignDoubleClick.h"
#include "window/shell/Pictures.h"

#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace tremlo {

namespace {

constexpr int kTextWidth = 360;
constexpr int kMarkSize = 52;
constexpr int kButtonMargin = 20;
constexpr QRgb kYesFace = 0xFFB7E2EF;
constexpr QRgb kNoFace = 0xFFFFD9C0;
constexpr QRgb kBackFace = 0xFFE2E2E2;
constexpr QRgb kMarkFace = 0xFF1F3F8F;

QFont QuestionFont(int points, bool bold) {
  QFont font(QStringLiteral("MS ゴシック"), points);
  font.setBold(bold);
  return font;
}

QString PictureOf(ChartQuestion question) {
  if (question == ChartQuestion::QaEnd) return QStringLiteral(":/shell/question_end.svg");
  return question < ChartQuestion::AmpQ1 ? QStringLiteral(":/shell/question_phase.svg")
                                         : QStringLiteral(":/shell/question_amplitude.svg");
}

class PictureView : public QWidget {
 public:
  PictureView(QSvgRenderer& picture, QWidget* parent) : QWidget(parent), m_picture(picture) {
    setFixedSize(picture.defaultSize());
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    m_picture.render(&painter, rect());
  }

 private:
  QSvgRenderer& m_picture;
};

/// The question mark on a round badge.
class QuestionMark : public QLabel {
 public:
  explicit QuestionMark(QWidget* parent) : QLabel(QStringLiteral("？"), parent) {
    setObjectName(QStringLiteral("questionMark"));
    setFont(QuestionFont(24, true));
    setAlignment(Qt::AlignCenter);
    setFixedSize(kMarkSize, kMarkSize);
    QPalette white = palette();
    white.setColor(QPalette::WindowText, Qt::white);
    setPalette(white);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(kMarkFace));
      painter.drawEllipse(rect());
    }
    QLabel::paintEvent(event);
  }
};

QLabel* TextLabel(const char* name, const QString& text, const QFont& font, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setFont(font);
  return label;
}

/// The question's own text, in the room that the longest of them takes.
QLabel* QuestionText(const ChartQuestionRow& row, QWidget* parent) {
  auto* const label = TextLabel("text", {}, QuestionFont(11, false), parent);
  label->setWordWrap(true);
  label->setFixedWidth(kTextWidth);
  int height = kMarkSize;
  for (const ChartQuestion question : kChartQuestions) {
    label->setText(QString::fromUtf16(RowOf(question).text));
    height = std::max(height, label->heightForWidth(kTextWidth));
  }
  label->setFixedHeight(height);
  label->setText(QString::fromUtf16(row.text));
  return label;
}

}  // namespace

CPropertyQa::CPropertyQa(ChartQuestion question, std::function<bool()> mayCancel, QWidget* parent)
    : QDialog(parent), m_mayCancel(std::move(mayCancel)) {
  LoadPictures();
  m_picture.load(PictureOf(question));
  const ChartQuestionRow& row = RowOf(question);
  setObjectName(QLatin1String(row.dialog));
  setWindowTitle(QString::fromUtf16(row.title));
  setAccessibleName(windowTitle());
  setAccessibleDescription(QString::fromUtf16(row.text));

  auto* const column = new QVBoxLayout(this);
  column->addWidget(TextLabel("caption", windowTitle(), QuestionFont(14, true), this));
  column->addWidget(MakeBody(row));
  // Without a reference, its room stays.
  auto* const reference = TextLabel("reference", QString::fromUtf16(row.reference), font(), this);
  reference->setMinimumHeight(fontMetrics().height());
  column->addWidget(reference);
  column->addLayout(MakeButtons(row));
  // Not by the layout: it would set the size once more as the dialog appears, and with it a place that counts
  // without the window manager's frame.
  setFixedSize(sizeHint());
}

QWidget* CPropertyQa::MakeBody(const ChartQuestionRow& row) {
  auto* const body = new QWidget(this);
  auto* const line = new QHBoxLayout(body);
  line->setContentsMargins(0, 6, 0, 6);
  line->setSpacing(12);
  line->addWidget(new PictureView(m_picture, body));
  line->addWidget(new QuestionMark(body));
  line->addWidget(QuestionText(row, body));
  return body;
}

QHBoxLayout* CPropertyQa::MakeButtons(const ChartQuestionRow& row) {
  auto* const line = new QHBoxLayout;
  line->addStretch();
  if (row.back) line->addWidget(AddButton("backButton", row.back, kBackFace, &CPropertyQa::PressBack));
  CExpButton* const yes = AddButton("yesButton", row.yes, kYesFace, &CPropertyQa::PressYes);
  line->addWidget(yes);
  if (row.no) line->addWidget(AddButton("noButton", row.no, kNoFace, &CPropertyQa::PressNo));
  yes->setFocus();
  return line;
}

CExpButton* CPropertyQa::AddButton(const char* name, const char16_t* text, QRgb face,
                                   void (CPropertyQa::*press)()) {
  auto* const button = NamedButton<CExpButton>(name, QString::fromUtf16(text), this);
  button->SetStyle(CExpButton::kFlowStyle);
  button->SetColors({.pressedFace = QColor(face).darker(115),
                     .flash = QColor(face).lighter(105),
                     .face = QColor(face),
                     .disabledFace = QColor(0xFFD0D0D0),
                     .highlight = Qt::white,
                     .shadow = QColor(0xFF91A7B4),
                     .line = QColor(0xFF606060),
                     .text = Qt::black});
  const QFontMetrics metrics(button->font());
  button->setFixedSize(metrics.horizontalAdvance(QStringLiteral("やり直す")) + 2 * kButtonMargin,
                       metrics.height() + kButtonMargin);
  new ForeignDoubleClick(button);
  connect(button, &QAbstractButton::clicked, this, press);
  return button;
}

QuestionEnd CPropertyQa::End() const {
  if (result() != Accepted) return QuestionEnd::Cancelled;
  if (m_wentBack) return QuestionEnd::Back;
  return m_answerYes ? QuestionEnd::Yes : QuestionEnd::No;
}

QuestionEnd CPropertyQa::Ask(ChartQuestion question, const std::function<bool()>& mayCancel, QPoint& place,
                             QWidget* parent) {
  CPropertyQa dialog(question, mayCancel, parent);
  if (!dialog.CanBeShown()) return QuestionEnd::NotShown;
  dialog.m_place = place;
  dialog.move(place);
  dialog.exec();
  // Question and dialog go together: not every window manager finds the window behind both by itself.
  if (parent && dialog.End() == QuestionEnd::Cancelled) parent->activateWindow();
  place = dialog.Place();
  return dialog.End();
}

QSize CPropertyQa::DialogSize() {
  return CPropertyQa(ChartQuestion::PhaseQ1, {}).sizeHint();
}

void CPropertyQa::done(int result) {
  m_place = pos();
  QDialog::done(result);
}

void CPropertyQa::reject() {
  if (m_mayCancel()) QDialog::reject();
}

void CPropertyQa::PressYes() {
  m_answerYes = true;
  accept();
}

void CPropertyQa::PressNo() {
  m_answerYes = false;
  accept();
}

void CPropertyQa::PressBack() {
  m_wentBack = true;
  accept();
}

}  // namespace tremlo
