#include "window/waves/RecordLine.h"

#include "window/graphs/NamedControl.h"
#include "window/waves/NoteLabel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tremlo {

namespace {

constexpr int kMostLines = 3;

}  // namespace

RecordLine::RecordLine(Prompt& prompt, CommandGate& gate,
                       std::function<void(const QString& path)> readOtherwise, QWidget* parent)
    : QWidget(parent), m_label(new NoteLabel("recordNote", QStringLiteral("読み込んだ記録"), this)) {
  Named(this, "recordLine", QStringLiteral("読み込んだ記録"));
  m_label->SetMostLines(kMostLines);
  m_label->SetDefinitions(NoteDefinitions());
  m_detailsButton = NamedButton<QPushButton>("recordDetailsButton", QStringLiteral("詳細"), this);
  m_detailsButton->setAccessibleName(QStringLiteral("読み込んだ記録の詳細"));
  connect(m_detailsButton, &QAbstractButton::clicked, this, [this, &prompt, &gate] {
    gate.Run([&] {
      if (m_note) prompt.Tell(NoteDetails(*m_note), PromptIcon::Information);
    });
  });
  m_otherButton = NamedButton<QPushButton>("otherFormatButton", QStringLiteral("別の形式として読む"), this);
  connect(m_otherButton, &QAbstractButton::clicked, this,
          [this, &gate, readOtherwise = std::move(readOtherwise)] {
            gate.Run([&] {
              if (m_note) readOtherwise(QString(m_note->file));
            });
          });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(m_label, 1);
  row->addWidget(m_otherButton, 0, Qt::AlignTop);
  row->addWidget(m_detailsButton, 0, Qt::AlignTop);
  Tell({});
}

void RecordLine::Tell(const std::optional<RecordNote>& note) {
  m_note = note;
  setVisible(note.has_value());
  m_otherButton->setVisible(note && note->format == RecordFormat::OwnWave && note->member.isEmpty());
  m_label->Tell(note ? NoteLine(*note) : QString());
}

std::vector<QWidget*> RecordLine::Controls() const {
  return {m_otherButton, m_detailsButton};
}

}  // namespace tremlo
