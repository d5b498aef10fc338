#include "core/records/KnetDirection.h"
#include "core/records/RecordReaders.h"
#include "core/records/RecordUnit.h"

#include <QDateTime>

#include <charconv>
#include <cmath>
#include <string>

namespace tremlo {

namespace {

constexpr std::size_t kNameColumns = 18;
constexpr std::size_t kMostHeaderLines = 40;
constexpr int kTriggerDelay = 15;  // s: the logger notes the start later by so much (NIED)

/// The lines of the header by their names, each with its place.
class Header {
 public:
  explicit Header(const RecordText& text) : m_text(text) {
    while (m_size < text.Size() && m_size < kMostHeaderLines) {
      if (IsData(text.Line(m_size))) return;
      // What follows the last line is data, even where it does not look like it.
      if (text.Line(m_size++).starts_with("Memo")) return;
    }
  }

  std::size_t Size() const { return m_size; }

  /// The line whose name is one of those given; false when there is none.
  bool Find(std::initializer_list<std::string_view> names, std::size_t& line, std::string_view& value) const {
    for (line = 0; line < m_size; ++line)
      for (const std::string_view name : names)
        if (Trimmed(m_text.Line(line).substr(0, kNameColumns)) == name) {
          value = Trimmed(m_text.Line(line).substr(std::min(kNameColumns, m_text.Line(line).size())));
          return true;
        }
    return false;
  }

  QString Value(std::initializer_list<std::string_view> names) const {
    std::size_t line = 0;
    std::string_view value;
    return Find(names, line, value) ? m_text.Decode(value).simplified() : QString();
  }

 private:
  static bool IsData(std::string_view line) {
    double number = 0.0;
    return LeadingNumber(line, number);
  }

  const RecordText& m_text;
  std::size_t m_size = 0;
};

/// Reads "3920(gal)/6182761". Both numbers must be above 0: a factor is never guessed.
bool ReadScale(std::string_view value, double& numerator, double& denominator) {
  constexpr std::string_view kUnit = "(gal)/";
  if (!LeadingNumber(value, numerator) || !value.starts_with(kUnit)) return false;
  value.remove_prefix(kUnit.size());
  return FieldNumber(value, denominator) && numerator > 0.0 && denominator > 0.0;
}

/// The samples as whole numbers; false with the refusal set at what is none.
bool ReadCounts(const RecordText& text, std::size_t first, std::vector<double>& counts, QString& error) {
  constexpr std::size_t kColumnsOfNumber = 9;
  counts.reserve(static_cast<std::size_t>(text.Content().size()) / kColumnsOfNumber);
  for (std::size_t line = first; line < text.Size(); ++line) {
    const std::string_view bytes = text.Line(line);
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    for (;;) {
      while (at != end && (*at == ' ' || *at == '\t')) ++at;
      if (at == end) break;
      std::int64_t count = 0;
      const auto [stop, failure] = std::from_chars(at, end, count);
      if (failure != std::errc() || (stop != end && *stop != ' ' && *stop != '\t')) {
        const std::string_view rest(at, static_cast<std::size_t>(end - at));
        error = text.Refusal(line, QStringLiteral("%1番目の値が整数ではありません").arg(counts.size() + 1),
                             rest.substr(0, rest.find_first_of(" \t")));
        return false;
      }
      counts.push_back(static_cast<double>(count));
      at = stop;
    }
  }
  return true;
}

/// The header's own figure of the peak checks factor, count and offset in one.
void CheckPeak(const Header& header, const RecordText& text, RecordReading& reading) {
  std::size_t line = 0;
  std::string_view value;
  double announced = 0.0;
  if (!header.Find({"Max. Acc. (gal)", "Max Acc. (gal)"}, line, value) || !FieldNumber(value, announced))
    return;
  const std::size_t point = value.find('.');
  const auto decimals = point == std::string_view::npos ? 0.0 : static_cast<double>(value.size() - point - 1);
  const double found = PeakOf(reading.components.front().acc).pga;
  if (std::fabs(std::fabs(announced) - found) <= 1.01 * std::pow(10.0, -decimals)) return;
  reading.Warn(QStringLiteral("最大加速度：ファイルの記載は %1 gal、計算では %2 gal です。")
                   .arg(text.Decode(value), QString::number(found, 'f', 3)));
}

}  // namespace

void ReadKnetAscii(const RecordText& text, const RecordAnswers& answers, RecordReading& reading) {
  const Header header(text);
  std::size_t line = 0;
  std::string_view value;
  const auto missing = [&](const char* name) {
    reading.error =
        text.Refusal(header.Size() == 0 ? 0 : header.Size() - 1,
                     QStringLiteral("ヘッダーに %1 がないまま終わっています").arg(QLatin1String(name)),
                     Trimmed(text.Line(header.Size() == 0 ? 0 : header.Size() - 1)));
  };
  if (answers.unit) {
    reading.error =
        text.Refusal(QStringLiteral("この形式の値は Scale Factor で換算します。単位は指定できません"));
    return;
  }

  if (!header.Find({"Scale Factor"}, line, value)) return missing("Scale Factor");
  double numerator = 0.0;
  double denominator = 0.0;
  if (!ReadScale(value, numerator, denominator)) {
    reading.error =
        text.Refusal(line, QStringLiteral("Scale Factor が「数値(gal)/数値」ではありません"), value);
    return;
  }
  RecordComponent component;
  component.factor = numerator / denominator;
  component.factorText = text.Decode(value);
  component.unit = QStringLiteral("count");

  std::optional<double> stated;
  double rate = 0.0;
  if (header.Find({"Sampling Freq(Hz)"}, line, value)) {
    std::string_view rest = value;
    const bool read = LeadingNumber(rest, rate) && (rest.empty() || Trimmed(rest) == "Hz");
    if (!read || rate <= 0.0) {
      reading.error = text.Refusal(line, QStringLiteral("Sampling Freq(Hz) が正の数値ではありません"), value);
      return;
    }
    stated = 1.0 / rate;
  }
  if (const auto step = ChooseTimeStep(stated, answers, reading)) component.timeStep = *step;

  const QString direction = header.Value({"Dir."});
  if (direction.isEmpty()) return missing("Dir.");
  component.name = ComponentOfDirection(direction);
  if (IsKikNetDirection(direction)) reading.format = RecordFormat::KikNetAscii;
  if (direction == u"1" || direction == u"2")
    reading.notes.push_back(QStringLiteral("地中の水平成分は、軸が北と東からずれていることがあります。"));

  reading.station = header.Value({"Station Code"});
  const QDateTime noted =
      QDateTime::fromString(header.Value({"Record Time"}), QStringLiteral("yyyy/MM/dd hh:mm:ss"));
  if (noted.isValid())
    reading.start = noted.addSecs(-kTriggerDelay).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) +
                    QStringLiteral(" JST");
  const QString memo = header.Value({"Memo.", "Memo"});
  if (memo.contains(QStringLiteral("component-corrected")))
    reading.notes.push_back(QStringLiteral("Memo：") + memo);

  reading.dataLines.push_back({header.Size(), text.Size()});
  if (!ReadCounts(text, header.Size(), component.acc, reading.error)) return;
  if (component.acc.empty()) {
    reading.error = text.Refusal(header.Size() - 1, QStringLiteral("この後に加速度のデータがありません"),
                                 Trimmed(text.Line(header.Size() - 1)));
    return;
  }
  double duration = 0.0;
  if (stated && header.Find({"Duration Time(s)"}, line, value) && FieldNumber(value, duration) &&
      duration >= 0.0 && rate * duration < 1e9) {
    const auto announced = static_cast<std::size_t>(std::llround(rate * duration));
    if (announced != component.acc.size()) reading.Warn(CountsDiffer(announced, component.acc.size()));
  }
  for (double& a : component.acc) a = a * numerator / denominator;
  reading.components.push_back(std::move(component));
  CheckPeak(header, text, reading);
}

}  // namespace tremlo
