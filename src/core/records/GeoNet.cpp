#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace tremlo {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kTextLines = 16;
constexpr FieldFormat kFormat{10, 8};
constexpr std::size_t kComponents = 3;
constexpr double kMostSamples = 1e7;

bool IsNever(std::string_view) {
  return false;
}

/// What came of one component.
enum class Part { Read, Cut, Refused };

class Reader {
 public:
  Reader(const RecordText& text, const RecordAnswers& answers, RecordReading& reading)
      : m_text(text), m_answers(answers), m_reading(reading) {}

  std::size_t& Line() { return m_line; }
  const QString& Name() const { return m_name; }

  /// Reads the component that begins at Line() and moves behind it.
  Part Read() {
    const std::size_t first = m_line;
    m_name = NameOf(first + 12);
    std::vector<double> whole;
    std::vector<double> real;
    m_line += kTextLines;
    if (m_line >= m_text.Size()) return Part::Cut;
    if (const Part part = Fields(40, whole); part != Part::Read) return part;
    if (const Part part = Fields(60, real); part != Part::Read) return part;
    std::array<std::size_t, 3> counts{};  // of acceleration, velocity, displacement
    for (std::size_t i = 0; i < counts.size(); ++i) {
      const double count = whole[33 + i];
      if (count < 0.0 || count > kMostSamples || count != std::floor(count)) {
        m_reading.error = m_text.Refusal(
            first + kTextLines + 3, QStringLiteral("整数ヘッダー%1 の点数が正しくありません").arg(34 + i),
            Trimmed(m_text.Line(first + kTextLines + 3)));
        return Part::Refused;
      }
      counts[i] = static_cast<std::size_t>(count);
    }
    RecordComponent component;
    component.name = m_name;
    if (counts[0] == 0) {
      m_reading.error = m_text.Refusal(first + kTextLines + 3, QStringLiteral("加速度のデータがありません"),
                                       Trimmed(m_text.Line(first + kTextLines + 3)));
      return Part::Refused;
    }
    const std::size_t firstOfData = m_line;
    if (const Part part = Fields(counts[0], component.acc); part != Part::Read) return part;
    m_reading.dataLines.push_back({firstOfData, m_line});
    for (const std::size_t count : {counts[1], counts[2]}) {
      std::vector<double> passedOver;
      if (const Part part = Fields(count, passedOver); part != Part::Read) return part;
    }
    Provenance(first, whole, real, component);
    m_reading.components.push_back(std::move(component));
    return Part::Read;
  }

 private:
  /// Numbers from Line() on; each block begins on a line of its own.
  Part Fields(std::size_t count, std::vector<double>& values) {
    FieldBlock block = ReadFields(m_text, m_line, count, kFormat, IsNever);
    m_line = block.next;
    if (!block.error.isEmpty()) {
      m_reading.error = block.error;
      // The end of the file may cut a number in a way that leaves none, such as "-".
      return block.next + 1 == m_text.Size() && EndsWithinField() ? Part::Cut : Part::Refused;
    }
    values = std::move(block.values);
    // A number cut short may look like one.
    const bool whole = values.size() == count && !(block.next == m_text.Size() && EndsWithinField());
    return count == 0 || whole ? Part::Read : Part::Cut;
  }

  /// Whether the last line ends within a field. Each is filled up to its last column.
  bool EndsWithinField() const {
    std::string_view last = m_text.Line(m_text.Size() - 1);
    last = last.substr(0, last.find_last_not_of(" \t") + 1);
    return last.size() % kFormat.width != 0;
  }

  QString NameOf(std::size_t line) const {
    const std::string_view bytes = m_text.Line(line);
    const std::size_t at = FindText(bytes, "Component");
    if (at == kNone) return {};
    const std::string_view rest = Trimmed(bytes.substr(at + 9));
    return m_text.Decode(rest.substr(0, rest.find(' ')));
  }

  void Provenance(std::size_t first, const std::vector<double>& whole, const std::vector<double>& real,
                  RecordComponent& component) {
    const auto step = real[25] > 0.0 ? std::optional<double>(real[25]) : std::nullopt;
    if (const auto chosen = ChooseTimeStep(step, m_answers, m_reading)) component.timeStep = *chosen;
    const RecordUnit unit{QStringLiteral("mm/s2"), 0.1};
    const std::string_view points = m_text.Line(first + 9);
    const std::size_t word = FindText(points, "points");
    double announced = 0.0;
    std::string_view rest = word == kNone ? std::string_view() : points.substr(word + 6);
    if (LeadingNumber(rest, announced) && announced >= 0.0 && announced < kMostSamples &&
        static_cast<std::size_t>(announced) != component.acc.size())
      m_reading.Warn(CountsDiffer(static_cast<std::size_t>(announced), component.acc.size(), component.name));
    ToGal(component, ChooseUnit(unit, m_answers, m_reading));
    if (whole[31] > 0.0 || whole[32] > 0.0)
      m_reading.notes.push_back(QStringLiteral("%1：前に %2 点、後に %3 点が付け足されています。")
                                    .arg(component.name)
                                    .arg(whole[31])
                                    .arg(whole[32]));
    if (m_reading.components.empty()) {
      const std::string_view site = m_text.Line(first + 1);
      if (Trimmed(site).starts_with("Site")) {
        const std::string_view code = Trimmed(Trimmed(site).substr(4));
        m_reading.station = m_text.Decode(code.substr(0, code.find(' ')));
      }
      const QString event = m_text.Decode(Trimmed(m_text.Line(first + 7))).simplified();
      if (!event.isEmpty()) m_reading.notes.push_back(QStringLiteral("地震の時刻：") + event);
      const QString filter = m_text.Decode(Trimmed(m_text.Line(first + 11))).simplified();
      if (filter.contains(QStringLiteral("pass")))
        m_reading.notes.push_back(QStringLiteral("フィルタ：") + filter);
    }
  }

  const RecordText& m_text;
  const RecordAnswers& m_answers;
  RecordReading& m_reading;
  std::size_t m_line = 0;
  QString m_name;
};

}  // namespace

void ReadGeoNet(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  reading.corrected = !HasText(text.Line(0), "Uncorrected");
  Reader reader(text, answers, reading);
  while (reader.Line() < text.Size()) {
    const std::size_t first = reader.Line();
    if (Trimmed(text.Line(first)).empty()) {
      ++reader.Line();
      continue;
    }
    const Part part = HasText(text.Line(first), "ccelerogram") ? reader.Read() : Part::Refused;
    if (part == Part::Read) continue;
    if (part == Part::Refused) {
      if (reading.error.isEmpty())
        reading.error =
            text.Refusal(first, QStringLiteral("成分の見出しの行がありません"), Trimmed(text.Line(first)));
      reading.components.clear();
      return;
    }
    const std::size_t last = text.Size() - 1;
    const QString cut = QStringLiteral("成分%1（%2）の途中で終わっています")
                            .arg(QString::number(reading.components.size() + 1), reader.Name());
    reading.error.clear();
    if (reading.components.empty()) {
      reading.error = text.Refusal(last, cut, Trimmed(text.Line(last)));
      return;
    }
    reading.Warn(QStringLiteral("ファイルは%1行目、%2。").arg(QString::number(last + 1), cut));
    break;
  }
  if (reading.components.size() < kComponents) {
    QStringList names;
    for (const RecordComponent& component : reading.components) names << component.name;
    reading.Warn(QStringLiteral("成分：3 成分のうち %1 だけがあります。").arg(names.join(u'、')));
  }
}

}  // namespace tremlo
