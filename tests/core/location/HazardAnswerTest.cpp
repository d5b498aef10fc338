#include "core/location/HazardAnswer.h"
#include "support/TestFolder.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <string>
#include <string_view>

#ifdef __unix__
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#endif

namespace tremlo {

namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::string Fixture(const char* name) {
  return test::ReadAll(test::SourcePath(QStringLiteral("tests/data/jshis/") + QString::fromLatin1(name)))
      .toStdString();
}

struct MeshRead {
  AnswerResult result;
  std::vector<FaultInfo> faults;
};

MeshRead ReadMesh(const std::string& text, bool withProbabilities = true) {
  MeshRead read;
  read.result = ParseMeshAnswer(text, withProbabilities, read.faults);
  return read;
}

struct ModelRead {
  AnswerResult result;
  FaultInfo fault;
  bool erase = false;
};

/// Reads a model into a record that says by its texts whether it was touched.
ModelRead ReadModel(const std::string& text) {
  ModelRead read;
  read.fault.ltecode = QStringLiteral("F005701");
  read.fault.magu = QStringLiteral("untouched");
  read.result = ParseActivityAnswer(text, read.fault, read.erase);
  return read;
}

bool IsUntouched(const FaultInfo& fault) {
  FaultInfo expected;
  expected.ltecode = QStringLiteral("F005701");
  expected.magu = QStringLiteral("untouched");
  return fault == expected;
}

/// A model with one feature whose ring and property list are handed in.
std::string Model(const std::string& rings, const std::string& geomNum = "1") {
  return R"({"status":"Success","seisact_model":{"geom_num":)" + geomNum +
         R"(},"features":[{"geometry":{"type":"Polygon","coordinates":)" + rings + R"(},"properties":{}}]})";
}

TEST(MeshAnswerTest, EntriesComeInTheOrderOfTheAnswer) {
  const MeshRead read = ReadMesh(Fixture("fltsearch_C.json"));
  EXPECT_EQ(read.result.outcome, ServiceOutcome::Done);
  ASSERT_EQ(read.faults.size(), 11u);
  const FaultInfo& first = read.faults[0];
  EXPECT_EQ(first.rank, u"1");
  EXPECT_EQ(first.ltecode, u"F005701");
  EXPECT_EQ(first.ltename, u"森本・富樫断層帯");
  EXPECT_EQ(first.magnitude, u"-6.7");
  EXPECT_EQ(first.ijma, u"6.4");
  EXPECT_EQ(first.i45_ps, u"0.999");
  EXPECT_EQ(first.i50_ps, u"0.993");
  EXPECT_EQ(first.i55_ps, u"0.921");
  EXPECT_EQ(first.i60_ps, u"0.482");
  QStringList ranks;
  for (const FaultInfo& fault : read.faults) ranks << fault.rank;
  EXPECT_EQ(ranks.join(u' '), u"1 2 3 4 5 6 7 8 9 10 11");
}

TEST(MeshAnswerTest, EntriesAreAppended) {
  std::vector<FaultInfo> faults(2);
  ParseMeshAnswer(Fixture("fltsearch_C.json"), true, faults);
  EXPECT_EQ(faults.size(), 13u);
}

TEST(MeshAnswerTest, MissingKeysStandAsDashesAndNoName) {
  const MeshRead read = ReadMesh(Fixture("fltsearch_missing_keys.json"));
  ASSERT_EQ(read.faults.size(), 3u);
  EXPECT_EQ(read.faults[0].ltename, u"No Name");
  EXPECT_EQ(read.faults[1].magnitude, u"-");
  EXPECT_EQ(read.faults[2].i45_ps, u"-");
  EXPECT_EQ(read.faults[2].i50_ps, u"0.842");
}

TEST(MeshAnswerTest, EmptyTextsStandAsDashesAndNoName) {
  const MeshRead read =
      ReadMesh(R"({"Fault":[{"rank":"","ltecode":null,"ltename":"","magnitude":"","ijma":"","i45_ps":""}]})");
  ASSERT_EQ(read.faults.size(), 1u);
  const FaultInfo& fault = read.faults[0];
  EXPECT_EQ(fault.ltename, u"No Name");
  for (const QString& text : {fault.rank, fault.ltecode, fault.magnitude, fault.ijma, fault.i45_ps,
                              fault.i50_ps, fault.i55_ps, fault.i60_ps})
    EXPECT_EQ(text, u"-");
}

TEST(MeshAnswerTest, ModeSKeepsNoProbabilities) {
  const MeshRead read = ReadMesh(Fixture("fltsearch_C.json"), false);
  ASSERT_EQ(read.faults.size(), 11u);
  for (const FaultInfo& fault : read.faults)
    for (const QString& text : {fault.i45_ps, fault.i50_ps, fault.i55_ps, fault.i60_ps})
      EXPECT_EQ(text, u"-");
}

TEST(MeshAnswerTest, NameIsUtf8AndOtherTextsAreOfTheCodePage) {
  const MeshRead read = ReadMesh("{\"Fault\":[{\"ltename\":\"断層 é 髙\",\"ijma\":\"\x8b\xad\"}]}");
  ASSERT_EQ(read.faults.size(), 1u);
  EXPECT_EQ(read.faults[0].ltename, u"断層 é 髙");
  EXPECT_EQ(read.faults[0].ijma, u"強");
}

TEST(MeshAnswerTest, StatusErrorAddsNoRecord) {
  const MeshRead read = ReadMesh(Fixture("fltsearch_error.json"));
  EXPECT_EQ(read.result.outcome, ServiceOutcome::NothingFound);
  EXPECT_TRUE(read.faults.empty());
}

TEST(MeshAnswerTest, EmptyRankingIsSound) {
  const MeshRead read = ReadMesh(Fixture("fltsearch_none.json"));
  EXPECT_EQ(read.result.outcome, ServiceOutcome::Done);
  EXPECT_TRUE(read.faults.empty());
}

TEST(MeshAnswerTest, TextThatIsNoJsonIsABadAnswer) {
  for (const std::string& text :
       {Fixture("fltsearch_broken.json"), std::string(), std::string("<html></html>"),
        std::string("\xef\xbb\xbf{}"), std::string("{\"Fault\":[],}"), std::string(1, '\0'), std::string("]"),
        std::string("\"")}) {
    const MeshRead read = ReadMesh(text);
    EXPECT_EQ(read.result.outcome, ServiceOutcome::BadAnswer) << text;
    EXPECT_TRUE(read.faults.empty());
  }
}

TEST(MeshAnswerTest, TextBehindTheObjectIsIgnored) {
  EXPECT_EQ(ReadMesh(R"({"Fault":[]} and more {[)").result.outcome, ServiceOutcome::Done);
}

TEST(MeshAnswerTest, ValueOfAnotherKindIsATypeFaultWithTheParsersText) {
  for (const char* text :
       {"1", "[]", "null", "\"x\"", "{}", R"({"Fault":{}})", R"({"Fault":null})", R"({"Fault":["x"]})",
        R"({"Fault":[{"rank":1}]})", R"({"Fault":[{"eqgroup":[]}]})", R"({"Fault":[{"magnitude":true}]})",
        R"({"Fault":[{"i60_ps":{}}]})", R"({"status":1,"Fault":[]})"}) {
    const MeshRead read = ReadMesh(text);
    EXPECT_EQ(read.result.outcome, ServiceOutcome::TypeFault) << text;
    EXPECT_FALSE(read.result.faultText.isEmpty()) << text;
    EXPECT_TRUE(read.faults.empty()) << text;
  }
  EXPECT_TRUE(ReadMesh("{}").result.faultText.contains(u"type mismatch! call is<type>() before get<type>()"));
  EXPECT_EQ(ReadMesh("[]").result.faultText, u"is<object>()");
}

TEST(MeshAnswerTest, NumberWithoutADoubleIsATypeFaultThatSaysSo) {
  const MeshRead read = ReadMesh(R"({"Fault":[{"rank":1e400}]})");
  EXPECT_EQ(read.result.outcome, ServiceOutcome::TypeFault);
  EXPECT_EQ(read.result.faultText, u"J-SHISの回答に扱えない数値があります。");
}

TEST(MeshAnswerTest, RecordsBeforeATypeFaultStay) {
  const MeshRead read = ReadMesh(R"({"Fault":[{"rank":"1"},{"rank":"2"},{"rank":3},{"rank":"4"}]})");
  EXPECT_EQ(read.result.outcome, ServiceOutcome::TypeFault);
  EXPECT_EQ(read.faults.size(), 2u);
}

TEST(MeshAnswerTest, NestingOfAnyDepthIsSurvived) {
  constexpr std::size_t kDeep = 1000000;
  std::string objects;
  for (std::size_t i = 0; i < kDeep; ++i) objects += "{\"a\":";
  for (const std::string& text : {objects, std::string(kDeep, '['), std::string(kDeep, '{')})
    EXPECT_EQ(ReadMesh(text).result.outcome, ServiceOutcome::BadAnswer);
}

TEST(MeshAnswerTest, BracketsInTextsAreNoNesting) {
  const std::string brackets = std::string(500, '[') + "\\\"" + std::string(500, '{');
  const MeshRead read = ReadMesh("{\"Fault\":[{\"ltename\":\"" + brackets + "\"}]}");
  EXPECT_EQ(read.result.outcome, ServiceOutcome::Done);
  ASSERT_EQ(read.faults.size(), 1u);
  EXPECT_EQ(read.faults[0].ltename.size(), 1001);
}

TEST(ActivityAnswerTest, PlanesAndActivityAreStored) {
  const ModelRead read = ReadModel(Fixture("fltinfo_F000601.geojson"));
  EXPECT_EQ(read.result.outcome, ServiceOutcome::Done);
  EXPECT_FALSE(read.erase);
  const FaultInfo& fault = read.fault;
  EXPECT_EQ(fault.geomNum, 2);
  EXPECT_EQ(fault.avract, u"1000");
  EXPECT_EQ(fault.newact, u"278");
  EXPECT_EQ(fault.t30p, u"0");
  EXPECT_EQ(fault.t50p, u"0");
  EXPECT_EQ(fault.magu, u"-7.2");
  EXPECT_THAT(fault.groundClass, ElementsAre(u"A", u"A"));
  EXPECT_THAT(fault.lon, ElementsAre(u"141.915", u"141.915"));
  EXPECT_THAT(fault.lat, ElementsAre(u"42.969", u"42.969"));
  EXPECT_THAT(fault.dep, ElementsAre(u"9.0", u"9.0"));
  EXPECT_THAT(fault.len, ElementsAre(u"37.9", u"21.9"));
  EXPECT_THAT(fault.wid, ElementsAre(u"18.0", u"18.0"));
  EXPECT_THAT(fault.str, ElementsAre(u"14.0", u"164.0"));
  EXPECT_THAT(fault.dip, ElementsAre(u"30.0", u"150.0"));
  EXPECT_EQ(fault.ltecode, u"F005701");
}

TEST(ActivityAnswerTest, RingOfFivePositionsYieldsFourCorners) {
  const FaultInfo fault = ReadModel(Fixture("fltinfo_F000601.geojson")).fault;
  EXPECT_THAT(fault.corner1Lon, ElementsAre(141.915, 141.915));
  EXPECT_THAT(fault.corner1Lat, ElementsAre(42.969, 42.969));
  EXPECT_THAT(fault.corner1Dep, ElementsAre(9.0, 9.0));
  EXPECT_THAT(fault.corner2Lon, ElementsAre(142.02769, 141.98888));
  EXPECT_THAT(fault.corner2Lat, ElementsAre(43.30002, 42.7795));
  EXPECT_THAT(fault.corner2Dep, ElementsAre(9.0, 9.0));
  EXPECT_THAT(fault.corner3Lon, ElementsAre(142.21351, 142.17235));
  EXPECT_THAT(fault.corner3Lat, ElementsAre(43.26608, 42.81818));
  EXPECT_THAT(fault.corner3Dep, ElementsAre(18.0, 18.0));
  EXPECT_THAT(fault.corner4Lon, ElementsAre(142.10035, 142.09873));
  EXPECT_THAT(fault.corner4Lat, ElementsAre(42.93505, 43.00768));
  EXPECT_THAT(fault.corner4Dep, ElementsAre(18.0, 18.0));
}

TEST(ActivityAnswerTest, EmptyTextsStandAsDashesAndAFractionIsCut) {
  const FaultInfo fault = ReadModel(Fixture("fltinfo_F0EMPTY.geojson")).fault;
  EXPECT_EQ(fault.geomNum, 3);
  for (const QString& text : {fault.avract, fault.newact, fault.t30p, fault.t50p, fault.magu})
    EXPECT_EQ(text, u"-");
  EXPECT_THAT(fault.dip, ElementsAre(u"-"));
  EXPECT_EQ(ReadModel(Model("[]", "2.9")).fault.geomNum, 2);
  EXPECT_EQ(ReadModel(Model("[]", "-2.9")).fault.geomNum, -2);
}

TEST(ActivityAnswerTest, NumberOfPlanesIsHeldInside32Bits) {
  EXPECT_EQ(ReadModel(Model("[]", "1e300")).fault.geomNum, INT32_MAX);
  EXPECT_EQ(ReadModel(Model("[]", "-1e300")).fault.geomNum, INT32_MIN);
}

TEST(ActivityAnswerTest, ModelReplacesThePlanesOfARecord) {
  FaultInfo fault = ReadModel(Fixture("fltinfo_F016221.geojson")).fault;
  ASSERT_EQ(fault.lon.size(), 6u);
  bool erase = true;
  ParseActivityAnswer(Fixture("fltinfo_F000601.geojson"), fault, erase);
  EXPECT_FALSE(erase);
  EXPECT_THAT(fault.lon, SizeIs(2));
  EXPECT_THAT(fault.groundClass, SizeIs(2));
  EXPECT_THAT(fault.corner4Dep, SizeIs(2));
}

TEST(ActivityAnswerTest, OneFeatureThatIsNoPolygonDropsTheEntry) {
  for (const char* name : {"fltinfo_F0MIXED.geojson", "fltinfo_ANNKI.geojson"}) {
    const ModelRead read = ReadModel(Fixture(name));
    EXPECT_EQ(read.result.outcome, ServiceOutcome::Done) << name;
    EXPECT_TRUE(read.erase) << name;
    EXPECT_TRUE(IsUntouched(read.fault)) << name;
  }
}

TEST(ActivityAnswerTest, StatusErrorLeavesTheRecord) {
  const ModelRead read = ReadModel(Fixture("fltinfo_F099999.geojson"));
  EXPECT_EQ(read.result.outcome, ServiceOutcome::NothingFound);
  EXPECT_FALSE(read.erase);
  EXPECT_TRUE(IsUntouched(read.fault));
}

TEST(ActivityAnswerTest, CornersKeepStepWithThePlanesWhateverTheRings) {
  // No ring, a ring of one position without depth, a hole, a position of four numbers.
  const FaultInfo none = ReadModel(Model("[]")).fault;
  EXPECT_THAT(none.corner1Lon, ElementsAre(0.0));
  EXPECT_THAT(none.corner4Dep, ElementsAre(0.0));
  const FaultInfo flat = ReadModel(Model("[[[136,36]]]")).fault;
  EXPECT_THAT(flat.corner1Lon, ElementsAre(136.0));
  EXPECT_THAT(flat.corner1Lat, ElementsAre(36.0));
  EXPECT_THAT(flat.corner1Dep, ElementsAre(0.0));
  EXPECT_THAT(flat.corner2Lon, ElementsAre(0.0));
  const FaultInfo hole = ReadModel(Model("[[[1,2,3,99]],[[4,5,6]]]")).fault;
  EXPECT_THAT(hole.corner1Lon, ElementsAre(1.0));
  EXPECT_THAT(hole.corner1Dep, ElementsAre(3.0));
}

TEST(ActivityAnswerTest, ValueOfAnotherKindIsATypeFaultThatStoresNothing) {
  for (const std::string& text : {std::string("{}"), std::string(R"({"seisact_model":{},"features":[]})"),
                                  std::string(R"({"seisact_model":{"geom_num":"1"},"features":[]})"),
                                  std::string(R"({"seisact_model":{"geom_num":1,"magu":7.2},"features":[]})"),
                                  std::string(R"({"seisact_model":{"geom_num":1}})"),
                                  std::string(R"({"seisact_model":{"geom_num":1},"features":[1]})"),
                                  std::string(R"({"seisact_model":{"geom_num":1},"features":[{}]})"),
                                  Model("null"), Model("[1]"), Model("[[1]]"), Model(R"([[["136",36,0]]])"),
                                  Model(R"([[[136,36,0,"x"]]])"), Model("[[[136,36,0],[1,2,null]]]")}) {
    const ModelRead read = ReadModel(text);
    EXPECT_EQ(read.result.outcome, ServiceOutcome::TypeFault) << text;
    EXPECT_FALSE(read.erase);
    EXPECT_TRUE(IsUntouched(read.fault)) << text;
  }
}

TEST(ActivityAnswerTest, PositionBehindTheFourthIsNotLookedAt) {
  EXPECT_EQ(ReadModel(Model("[[[1,1,1],[2,2,2],[3,3,3],[4,4,4],\"x\"]]")).result.outcome,
            ServiceOutcome::Done);
}

/// Whether the vectors of a model keep step.
bool IsSound(const FaultInfo& fault) {
  const std::size_t count = fault.groundClass.size();
  for (const auto* texts :
       {&fault.lon, &fault.lat, &fault.dep, &fault.len, &fault.wid, &fault.str, &fault.dip})
    if (texts->size() != count) return false;
  for (const auto* ordinates : {&fault.corner1Lon, &fault.corner1Lat, &fault.corner1Dep, &fault.corner2Lon,
                                &fault.corner2Lat, &fault.corner2Dep, &fault.corner3Lon, &fault.corner3Lat,
                                &fault.corner3Dep, &fault.corner4Lon, &fault.corner4Lat, &fault.corner4Dep})
    if (ordinates->size() != count) return false;
  return true;
}

std::string Repeated(std::string_view piece, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text.append(piece).push_back(',');
  if (!text.empty()) text.pop_back();
  return text;
}

std::string RankingOf(const std::string& entries) {
  return R"({"Fault":[)" + entries + "]}";
}

TEST(BoundsTest, RankingHoldsAThousandSources) {
  const MeshRead most = ReadMesh(RankingOf(Repeated("{}", 1000)));
  EXPECT_EQ(most.result.outcome, ServiceOutcome::Done);
  EXPECT_THAT(most.faults, SizeIs(1000));
  std::vector<FaultInfo> faults(1);
  EXPECT_EQ(ParseMeshAnswer(RankingOf(Repeated("{}", 1001)), true, faults).outcome, ServiceOutcome::BadAnswer);
  EXPECT_THAT(faults, SizeIs(1)) << "the list is as it was";
}

TEST(BoundsTest, SourceHasAHundredPlanes) {
  const auto model = [](std::size_t planes, const std::string& last) {
    const std::string plane = R"({"geometry":{"type":"Polygon","coordinates":[]},"properties":{}})";
    return R"({"seisact_model":{"geom_num":100},"features":[)" + Repeated(plane, planes) + last + "]}";
  };
  const ModelRead most = ReadModel(model(100, ""));
  EXPECT_EQ(most.result.outcome, ServiceOutcome::Done);
  EXPECT_THAT(most.fault.groundClass, SizeIs(100));
  const ModelRead more = ReadModel(model(101, ""));
  EXPECT_EQ(more.result.outcome, ServiceOutcome::BadAnswer);
  EXPECT_TRUE(IsUntouched(more.fault));
  EXPECT_FALSE(more.erase);
  EXPECT_TRUE(ReadModel(model(100, R"(,{"geometry":{"type":"Point"}})")).erase);
}

TEST(BoundsTest, AnswerHoldsHalfAMillionValues) {
  // The root, the ranking and the other member are values too.
  const auto answer = [](std::size_t values) { return R"({"Fault":[],"x":[)" + Repeated("0", values) + "]}"; };
  EXPECT_EQ(ReadMesh(answer(499997)).result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(ReadMesh(answer(499998)).result.outcome, ServiceOutcome::BadAnswer);
}

TEST(BoundsTest, ValuesOfAnyKindCount) {
  for (const char* piece : {"0", "\"\"", "null", "true", "[]", "{}", R"({"":0})", "[0]"})
    EXPECT_EQ(ReadMesh(R"({"Fault":[],"x":[)" + Repeated(piece, 500000) + "]}").result.outcome,
              ServiceOutcome::BadAnswer)
        << piece;
  EXPECT_EQ(ReadMesh(R"({"Fault":[],)" + Repeated(R"("x":0)", 500000) + "}").result.outcome,
            ServiceOutcome::BadAnswer);
}

TEST(BoundsTest, TextOfARecordHoldsTenThousandBytes) {
  const auto ranking = [](std::size_t size) {
    return RankingOf(R"({"ltename":")" + std::string(size, 'x') + R"("})");
  };
  EXPECT_EQ(ReadMesh(ranking(10000)).result.outcome, ServiceOutcome::Done);
  EXPECT_EQ(ReadMesh(ranking(10001)).result.outcome, ServiceOutcome::BadAnswer);
}

#ifdef __unix__
/// Ends the process with the MiB by which reading the text as both answers has raised the most it ever held.
[[noreturn]] void ReadAndTellMemory(const std::string& text) {
  const auto mostKiB = [] {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  };
  const long before = mostKiB();
  {
    ReadMesh(text);
    ReadModel(text);
  }
  const long grown = (mostKiB() - before) / 1024;
  std::fprintf(stderr, "grown by %ld MiB", grown);
  std::_Exit(grown <= 200 ? 0 : 1);
}

TEST(BoundsTest, AnswerMadeToFillTheMemoryDoesNot) {
  constexpr std::size_t kMiB = 1 << 20;
  const std::vector<std::string> answers = {
      RankingOf(Repeated("{}", 2 * kMiB / 3)),
      Repeated("{}", 16 * kMiB / 3),
      "[" + Repeated("{}", 16 * kMiB / 3) + "]",
      "[" + Repeated("\"\"", 16 * kMiB / 3) + "]",
      "[" + Repeated(R"({"":0})", 16 * kMiB / 7) + "]",
      "[" + Repeated("[[[[[[[[0]]]]]]]]", 16 * kMiB / 18) + "]",
      "[" + std::string(16 * kMiB, '1') + "]",
      RankingOf(R"({"ltename":")" + std::string(16 * kMiB, 'x') + R"("})"),
      R"({"seisact_model":{"geom_num":1},"features":[)" +
          Repeated(R"({"geometry":{"type":"Polygon","coordinates":[]},"properties":{}})", 16 * kMiB / 67) + "]}",
      Model("[" + Repeated("[[1,2,3],[],[],[]]", 16 * kMiB / 18) + "]"),
  };
  for (const std::string& answer : answers)
    EXPECT_EXIT(ReadAndTellMemory(answer), testing::ExitedWithCode(0), "")
        << answer.substr(0, 60) << " of " << answer.size();
}
#endif

TEST(AnyBytesTest, AnswerCutAnywhereIsABadAnswer) {
  const std::string mesh = Fixture("fltsearch_C.json");
  for (std::size_t length = 0; length < mesh.rfind('}'); ++length) {
    const MeshRead read = ReadMesh(mesh.substr(0, length));
    ASSERT_EQ(read.result.outcome, ServiceOutcome::BadAnswer) << length;
    ASSERT_TRUE(read.faults.empty()) << length;
  }
  const std::string model = Fixture("fltinfo_F000601.geojson");
  for (std::size_t length = 0; length < model.rfind('}'); ++length) {
    const ModelRead read = ReadModel(model.substr(0, length));
    ASSERT_EQ(read.result.outcome, ServiceOutcome::BadAnswer) << length;
    ASSERT_TRUE(IsUntouched(read.fault)) << length;
  }
}

TEST(AnyBytesTest, AnyChangedByteIsSurvived) {
  const std::string mesh = Fixture("fltsearch_missing_keys.json");
  const std::string model = Fixture("fltinfo_F000601.geojson");
  for (const char byte : {'\0', '"', '{', ']', ':', '9', '-', '\\', '\xff'}) {
    for (std::size_t place = 0; place < mesh.size(); ++place) {
      std::string text = mesh;
      text[place] = byte;
      const MeshRead read = ReadMesh(text);
      // An entry is there whole or not at all.
      for (const FaultInfo& fault : read.faults) ASSERT_FALSE(fault.i60_ps.isEmpty()) << place;
    }
    for (std::size_t place = 0; place < model.size(); ++place) {
      std::string text = model;
      text[place] = byte;
      const ModelRead read = ReadModel(text);
      ASSERT_TRUE(IsSound(read.fault)) << place;
      const bool stored = read.result.outcome == ServiceOutcome::Done && !read.erase;
      ASSERT_NE(stored, IsUntouched(read.fault)) << place;
    }
  }
}

}  // namespace

}  // namespace tremlo
