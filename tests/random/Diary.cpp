#include "random/Diary.h"

#include <QFile>

namespace tremlo::test {

namespace {

constexpr std::size_t kKept = 50;

std::string Table(const char* title, const std::map<std::string, int>& counts) {
  std::string text = std::string(title) + ":";
  for (const auto& [name, count] : counts) text += "\n  " + name + ": " + std::to_string(count);
  return text + "\n";
}

}  // namespace

Diary::Diary(const QString& path) : m_path(path), m_file(std::make_unique<QFile>(path)) {
  if (!m_file->open(QIODevice::WriteOnly)) m_file.reset();
}

Diary::~Diary() = default;

void Diary::Note(const QString& line) {
  Write(QStringLiteral("      ") + line);
}

void Diary::Begin(const char* kind, const QString& what) {
  ++m_actions;
  ++m_kinds[kind];
  Write(QStringLiteral("%1 %2: %3").arg(m_actions, 5).arg(QString::fromLatin1(kind), what));
}

void Diary::Write(const QString& line) {
  QString plain = line;
  plain.replace(u'\n', u' ').replace(u'\r', u' ');
  if (plain.size() > 300) plain = plain.left(300) + QStringLiteral(" ...");
  if (m_file) {
    m_file->write(plain.toUtf8() + '\n');
    m_file->flush();
  }
  const std::lock_guard guard(m_lock);
  m_last.push_back(plain.toStdString());
  if (m_last.size() > kKept) m_last.pop_front();
}

std::string Diary::Counts() const {
  return Table("Actions", m_kinds) + Table("States after an action", m_states);
}

std::string Diary::LastActions() const {
  const std::lock_guard guard(m_lock);
  std::string text;
  for (const std::string& line : m_last) text += "  " + line + "\n";
  return text;
}

}  // namespace tremlo::test
