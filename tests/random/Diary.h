#pragma once

#include <QString>

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>

class QFile;

namespace tremlo::test {

/// What the random user has done: every action in a file, line by line as it is begun, so that a crash leaves
/// it behind; the last ones in memory; counts by kind. Any thread may write the last ones out.
class Diary {
 public:
  explicit Diary(const QString& path);
  ~Diary();

  const QString& Path() const { return m_path; }
  void Note(const QString& line);  ///< what happens beside the actions: a box, a file chosen
  void Begin(const char* kind, const QString& what);
  void Reached(const char* state) { ++m_states[state]; }

  int Actions() const { return m_actions; }
  std::string Counts() const;
  std::string LastActions() const;

 private:
  void Write(const QString& line);

  QString m_path;
  std::unique_ptr<QFile> m_file;
  int m_actions = 0;
  std::map<std::string, int> m_kinds, m_states;
  mutable std::mutex m_lock;
  std::deque<std::string> m_last;
};

}  // namespace tremlo::test
