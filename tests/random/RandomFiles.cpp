#include "random/RandomFiles.h"

namespace tremlo::test {

namespace {

constexpr int kRealDialogPercent = 12;
constexpr int kCancelPercent = 8;

}  // namespace

QString RandomFiles::AskOpenPath(const FileQuestion& question) {
  return AskOpenFile(question).path;
}

FileChoice RandomFiles::AskOpenFile(const FileQuestion& question) {
  m_choice = [this, question] { return ToOpen(question); };
  if (m_doc && m_random.Percent(kRealDialogPercent)) return FileDialogBoxes(*m_doc).AskOpenFile(question);
  const QString path = m_random.Percent(kCancelPercent) ? QString() : ToOpen(question);
  const int filter =
      m_random.Below(static_cast<std::size_t>(question.nameFilters.count(QStringLiteral(";;")) + 1));
  m_diary.Note(QStringLiteral("file to open: %1, filter %2").arg(path).arg(filter));
  return {path, filter};
}

QString RandomFiles::AskSavePath(const FileQuestion& question) {
  m_choice = [this, question] { return ToSave(question); };
  if (m_doc && m_random.Percent(kRealDialogPercent)) return FileDialogBoxes(*m_doc).AskSavePath(question);
  const QString path = m_random.Percent(kCancelPercent) ? QString() : ToSave(question);
  m_diary.Note(QStringLiteral("file to save: ") + path);
  return path;
}

QString RandomFiles::Choice() {
  return m_choice ? m_choice() : QString();
}

QString RandomFiles::ToOpen(const FileQuestion& question) {
  if (question.nameFilters.contains(QStringLiteral("trml"))) return m_samples.Project(m_random);
  if (question.title.contains(QStringLiteral("スペクトル")) || m_random.Percent(15))
    return m_samples.Spectrum(m_random);
  return m_random.Percent(50) ? m_samples.Record(m_random) : m_samples.Wave(m_random);
}

QString RandomFiles::ToSave(const FileQuestion& question) {
  const QString suffix = question.suffix.isEmpty() ? QStringLiteral("csv") : question.suffix;
  const QString path = m_samples.NewFile(m_random, suffix);
  m_samples.Remember(path);
  return path;
}

}  // namespace tremlo::test
