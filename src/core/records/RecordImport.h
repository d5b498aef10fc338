#pragma once

#include "core/records/RecordNote.h"
#include "core/records/RecordOffset.h"

#include <QByteArray>

#include <array>
#include <optional>

namespace tremlo {

/// One component as it becomes a wave.
struct ImportedWave {
  QString name;
  double timeStep = 0.0;    ///< s
  std::vector<double> acc;  ///< gal
  std::optional<RecordNote> note;
};

/// The program's own wave file, read as everywhere in the program: nothing is asked, refused or taken off.
/// What speaks against it stands in the note.
ImportedWave ReadOwnImport(const QByteArray& content, const QString& path);

/// Why the choices do not do yet, and where that is mended.
struct ImportFault {
  enum Field { Format, Unit, TimeStep, Layout, Missing, DecimalComma, Lines, Offset, Span, Components };
  Field field = Format;
  QString text;
};

/// The import of a file, or of some members of an archive, while the user chooses: what the files hold, what
/// is to be taken of it and how, and what would be read. Stores nothing.
class RecordImport {
 public:
  struct File {
    QString path;
    QString member;  ///< its path in an archive; empty outside one
    QByteArray content;
  };

  /// One component of one of the files.
  struct Component {
    std::size_t file = 0;
    std::size_t place = 0;  ///< among the components of that file
    QString name;           ///< of the wave
    bool chosen = false;
  };

  /// With `format` every file is read as that, else as what its content shows. `onlyOne`: a single component
  /// is to be chosen.
  explicit RecordImport(std::vector<File> files, bool onlyOne, RecordFormat format = RecordFormat::Unknown);

  bool TakesOnlyOne() const { return m_onlyOne; }
  const std::vector<File>& Files() const { return m_files; }
  const std::vector<RecordReading>& Readings() const { return m_readings; }  ///< one a file
  const std::vector<Component>& Components() const { return m_components; }
  const RecordComponent& Samples(std::size_t component) const;

  /// Reads all files as another format.
  void SetFormat(RecordFormat format);

  const RecordAnswers& Answers() const { return m_answers; }
  /// Reads all files anew. What a format does not let be answered is not answered for it.
  void SetAnswers(const RecordAnswers& answers);
  /// What the files state without an answer; empty where they do not, or not all alike.
  const QString& StatedUnit() const { return m_statedUnit; }
  std::optional<double> StatedTimeStep() const { return m_statedStep; }
  bool Asks(RecordAsk ask) const;  ///< whether one of the files asks it now
  /// Whether it is answered by the user alone: a file asked it before it was answered.
  bool IsOpen(RecordAsk ask) const { return m_open[static_cast<std::size_t>(ask)]; }
  bool TakesUnit() const;        ///< whether a unit can be answered
  bool TakesTimeStep() const;    ///< the same for the step
  bool TakesLayout() const;      ///< for layout, decimal comma and lines of the data
  bool TakesMissing() const;     ///< for missing samples
  bool TakesAllSamples() const;  ///< whether a file holds more samples than it announces

  /// Until one is set, what is usual for each file.
  void SetOffset(std::optional<OffsetRule> rule) { m_offset = rule; }
  OffsetRule OffsetOfFile(std::size_t file) const;
  bool HasUsualOffset() const { return !m_offset; }
  bool UsualOffsetsDiffer() const;  ///< from file to file

  /// The part to keep (s from the start of the record); without an end up to its own.
  void SetSpan(double from, std::optional<double> to);
  double From() const { return m_from; }
  std::optional<double> To() const { return m_to; }

  /// Where a single one is to be chosen, the others are not any more.
  void Choose(std::size_t component, bool chosen);
  void Rename(std::size_t component, const QString& name);

  /// Whether nothing has to be asked: one component whose file says all and shows no finding.
  bool IsPlain() const;
  /// The first thing that stands in the way.
  std::optional<ImportFault> Fault() const;
  /// Whether the samples of a component are known in gal and in time.
  bool IsKnown(std::size_t component) const;
  /// What makes the chosen components doubtful, as they would be read.
  std::vector<QString> Warnings() const;
  std::vector<QString> Notes() const;  ///< worth knowing about the files of the chosen components

  /// A component that is known, as it would be read.
  ImportedWave Wave(std::size_t component) const;
  /// All that are chosen. To be called without a fault.
  std::vector<ImportedWave> Waves() const;

 private:
  struct Span {
    std::size_t first = 0;
    std::size_t behind = 0;
  };

  void Read();
  bool IsAnswered(RecordAsk ask) const;
  void ReadStatedUnit();
  void ReadStatedStep();
  RecordAnswers AnswersFor(RecordFormat format) const;
  bool IsChosen(std::size_t file) const;
  Span SpanOf(const RecordComponent& samples) const;
  /// Of one component, whether it is chosen or not.
  std::vector<QString> WarningsOf(std::size_t component) const;
  std::vector<QString> WarningsOfText(std::size_t file) const;

  std::vector<File> m_files;
  bool m_onlyOne;
  RecordFormat m_format;
  RecordAnswers m_answers;
  std::array<bool, 6> m_open{};  ///< by RecordAsk
  QString m_statedUnit;
  std::optional<double> m_statedStep;
  std::optional<OffsetRule> m_offset;
  double m_from = 0.0;
  std::optional<double> m_to;
  std::vector<RecordReading> m_readings;
  std::vector<Component> m_components;
};

}  // namespace tremlo
