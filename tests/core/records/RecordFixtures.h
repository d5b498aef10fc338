#pragma once

#include "core/records/ReadRecord.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

namespace tremlo::test {

inline QString FixturePath(const QString& name) {
  return SourcePath(QStringLiteral("tests/data/records/") + name);
}
inline QByteArray Fixture(const QString& name) {
  return ReadAll(FixturePath(name));
}

/// Content made up by a test, read under the name "x".
inline RecordReading ReadText(const QByteArray& content, const RecordAnswers& answers = {}) {
  return ReadRecord(content, QStringLiteral("x"), {}, answers);
}

/// A fixture with one text in it replaced, which must be there.
inline QByteArray Changed(const QString& fixture, const QByteArray& from, const QByteArray& to) {
  QByteArray content = Fixture(fixture);
  const qsizetype at = content.indexOf(from);
  EXPECT_GE(at, 0) << from.constData();
  return at < 0 ? content : content.replace(at, from.size(), to);
}

inline void ExpectRefusal(const RecordReading& reading, const QString& error) {
  EXPECT_EQ(reading.error, error);
  EXPECT_TRUE(reading.components.empty());
}

/// Whether one of the texts has the word.
inline testing::AssertionResult HasWord(const std::vector<QString>& texts, const QString& word) {
  std::string all;
  for (const QString& text : texts) {
    if (text.contains(word)) return testing::AssertionSuccess() << text.toStdString();
    all += text.toStdString() + '\n';
  }
  return testing::AssertionFailure() << word.toStdString() << " is not in:\n" << all;
}

}  // namespace tremlo::test
