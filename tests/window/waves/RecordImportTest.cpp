#include "window/waves/RecordImportTest.h"

#include "core/project/ResponseRoute.h"
#include "core/records/ReadRecord.h"
#include "core/records/RecordTerms.h"
#include "core/records/RecordUnit.h"
#include "window/waves/DlgReadRecord.h"
#include "window/waves/DlgSelectMembers.h"

#include <QMenu>

#include <numeric>

namespace tremlo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

double MeanOf(const std::vector<double>& acc) {
  return std::accumulate(acc.begin(), acc.end(), 0.0) / static_cast<double>(acc.size());
}

// Read at once

TEST_F(RecordImportScreen, ARecordThatSaysAllIsReadAtOnceWhateverTheFilter) {
  for (int filter = 0; filter < 3; ++filter) ReadFixture("knet/SMP0010001010000.EW", filter);
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("SMP001 EW", "SMP001 EW_1", "SMP001 EW_2"));
  EXPECT_EQ(Wave().timeStep, 0.01);
  ASSERT_EQ(Wave().acc.size(), 300U);
  EXPECT_NEAR(MeanOf(Wave().acc), 0.0, 1e-12);
  EXPECT_FALSE(Wave().spectrumValid);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(Line().toStdString(), HasSubstr("K-NET ASCII"));
  EXPECT_THAT(Line().toStdString(), HasSubstr("観測点：SMP001"));
  EXPECT_THAT(Line().toStdString(), HasSubstr("-7.64595 gal を差し引きました"));
  EXPECT_FALSE(driver.Find<QAbstractButton>("otherFormatButton").isVisible());
}

TEST_F(RecordImportScreen, TheFiltersAreTheTwoStatedOnesAndOneBehindThem) {
  files.Cancel();
  driver.Press("readButton");
  ASSERT_EQ(files.opened.size(), 1U);
  EXPECT_EQ(files.opened[0].nameFilters, "CSVファイル (*.csv);;All Files (*.*);;テキスト形式の記録 (*.*)");
  EXPECT_FALSE(doc.IsModified());
}

TEST_F(RecordImportScreen, EveryNamedFormatIsReadThroughTheWindow) {
  struct Case {
    const char* fixture;
    const char* format;
    std::size_t waves;
  };
  std::size_t before = 0;
  for (const Case& one :
       {Case{"knet/SMP0010001010000.NS", "K-NET ASCII", 1},
        Case{"kiknet/SMPH010001010000.UD2", "KiK-net ASCII", 1},
        Case{"knet/SAMPLE_SMP001.csv", "K-NET CSV", 3}, Case{"kiknet/SAMPLE_SMPH02.csv", "K-NET CSV", 6},
        Case{"jma/SAMPLE_99901.csv", "気象庁 CSV", 3}, Case{"peer/SAMPLE_RSN0_360.AT2", "AT2", 1},
        Case{"cosmos/SAMPLE_2ch.v1", "COSMOS", 2}, Case{"cosmos/SAMPLE_1ch.v2c", "COSMOS", 1},
        Case{"cosmos/SAMPLE_csmip.V2", "CSMIP", 1}, Case{"geonet/SAMPLE_SMPL.V1A", "GeoNet", 3},
        Case{"geonet/SAMPLE_SMPL.V2A", "GeoNet", 3},
        Case{"text/SAMPLE_time_value_tab_cp932.txt", "テキスト", 1}}) {
    if (one.waves > 1)
      WhenDialog::Opens("CDlgImportRecord", [&](QWidget& dialog) {
        EXPECT_EQ(In<CSpread7>(dialog, "componentGrid").RowCount(), static_cast<int>(one.waves))
            << one.fixture;
        EXPECT_EQ(doc.seedWaves.Count(), before) << one.fixture;
        PressIn(dialog, "okButton");
      });
    ReadFixture(one.fixture, 1);
    ASSERT_EQ(doc.seedWaves.Count(), before + one.waves) << one.fixture;
    ASSERT_TRUE(Wave(before).note);
    EXPECT_EQ(FormatName(Wave(before).note->format).toStdString(), one.format) << one.fixture;
    EXPECT_TRUE(Wave(before).current) << one.fixture;
    EXPECT_THAT(Line().toStdString(), HasSubstr(one.format));
    before += one.waves;
  }
}

TEST_F(RecordImportScreen, WhatIsRefusedIsToldWithFileLineAndValueAndChangesNothing) {
  Read(folder.Write("a.csv", "A, 0.02, 1\n0, 4\n0.02, 5\n"));
  doc.SetModified(false);
  const DocumentState before(doc);
  struct Case {
    const char* fixture;
    const char* line;
    const char* value;
  };
  for (const Case& one :
       {Case{"truncated_header.EW", "行目", ""}, Case{"header_cut_in_line.EW", "行目", ""},
        Case{"nan_text.EW", "28行目", "NaN"}, Case{"letter_in_data.EW", "22行目", ""},
        Case{"no_scale.EW", "行目", "Scale Factor"}, Case{"zero_scale.EW", "行目", "Scale Factor"},
        Case{"zero_rate.EW", "行目", "「0Hz」"}, Case{"jma_missing_cell.csv", "58行目", "EW"},
        Case{"jma_unit_count.csv", "行目", "単位"}, Case{"fortran_stars.AT2", "25行目", "***"},
        Case{"velocity.AT2", "3行目", "VELOCITY"}, Case{"cosmos_header_cut.v2", "行目", ""},
        Case{"cosmos_counts.v0c", "行目", "カウント"}}) {
    const QString path = RecordPath(QStringLiteral("broken/") + QLatin1String(one.fixture));
    const RecordImport expected({{path, {}, ReadAll(path)}}, false);
    ASSERT_TRUE(expected.Fault()) << one.fixture;
    const QString text = expected.Fault()->text;
    EXPECT_TRUE(text.startsWith(path)) << one.fixture;
    EXPECT_TRUE(text.contains(QString::fromUtf8(one.line)) && text.contains(QString::fromUtf8(one.value)))
        << text.toStdString();
    prompt.ExpectMessage(text);
    Read(path, 1);
    prompt.CheckUsedUp();
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty()) << one.fixture;
  }
}

TEST_F(RecordImportScreen, TheGraphOfWhatWillBeReadIsSavedFromItsMenu) {
  const QString picture = folder.Path(QStringLiteral("a.png"));
  const QString curves = folder.Path(QStringLiteral("a.csv"));
  WhenDialog::Opens("CDlgImportRecord", [&](QWidget& dialog) {
    auto& menu = In<QMenu>(dialog, "graphMenu");
    const auto choose = [&](const QString& path, int entry) {
      files.Choose(path);
      In<QWidget>(dialog, "graph").setFocus();
      PressKey(Qt::Key_F10, Qt::ShiftModifier);
      ASSERT_TRUE(menu.isVisible());
      for (int i = 0; i < entry; ++i) QTest::keyClick(&menu, Qt::Key_Down);
      QTest::keyClick(&menu, Qt::Key_Return);
      Settle();
    };
    choose(picture, 1);
    choose(curves, 2);
    {
      QDialog other(&dialog);
      other.setModal(true);
      other.show();
      Settle();
      menu.actions().front()->trigger();  // as over the accessibility bus
    }
    Settle();
    EXPECT_TRUE(dialog.isVisible());
    PressIn(dialog, "cancelButton");
  });
  ReadFixture("knet/SAMPLE_SMP001.csv", 1);
  EXPECT_EQ(files.saved.size(), 2u);
  EXPECT_FALSE(QImage(picture).isNull());
  EXPECT_GT(ReadAll(curves).count('\n'), 100);
  EXPECT_EQ(doc.seedWaves.Count(), 0U);
  EXPECT_FALSE(doc.IsModified());
}

// The first filter

TEST_F(RecordImportScreen, AFileWithoutASignIsReadAsEverUnderTheFirstFilterAndTheLineSaysSo) {
  ReadFixture("text/SAMPLE_one_column_gal.txt");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_TRUE(Wave().name.startsWith("# SAMPLE"));
  EXPECT_EQ(Wave().timeStep, 0.0);
  EXPECT_THAT(Line().toStdString(),
              HasSubstr("Tremlo CSV（他の形式の目印がないため、この形式で読みました）"));
  EXPECT_THAT(Line().toStdString(), HasSubstr("警告"));
  EXPECT_TRUE(driver.Find<QAbstractButton>("otherFormatButton").isVisible());
}

TEST_F(RecordImportScreen, SuchAFileCanBeReadAsAnotherFormat) {
  ReadFixture("text/SAMPLE_one_column_gal.txt");
  const DocumentState before(doc);
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    PressKey(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  driver.Press("otherFormatButton");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(In<QComboBox>(dialog, "formatCombo").currentText(), "テキスト");
    PressIn(dialog, "okButton");
  });
  driver.Press("otherFormatButton");
  ASSERT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_EQ(Wave(1).name, "SAMPLE_one_column_gal");
  EXPECT_EQ(Wave(1).timeStep, 0.01);
  EXPECT_EQ(Wave(1).acc.size(), 300U);
  EXPECT_FALSE(driver.Find<QAbstractButton>("otherFormatButton").isVisible());
}

TEST_F(RecordImportScreen, AFileThatIsGoneMeanwhileIsTold) {
  const QString path = folder.Write("a.csv", "A, 0.02, 1\n0, 4\n");
  Read(path);
  QFile::remove(path);
  prompt.ExpectMessage(path + "を開けません。（読み取りオープン）");
  driver.Press("otherFormatButton");
  EXPECT_EQ(doc.seedWaves.Count(), 1U);
}

TEST_F(RecordImportScreen, TheFurtherFilterLeadsToFreeText) {
  const QString path = folder.Write("a.csv", [] {
    QByteArray text = "A, 0.02, 1\n";
    for (int i = 0; i < 200; ++i)
      text += QByteArray::number(i * 0.02, 'f', 2) + ", " + QByteArray::number((i % 7) * 3 - 9) + "\n";
    return text;
  }());
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(In<QComboBox>(dialog, "formatCombo").currentText(), "テキスト");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "unitCombo");  // what is asked
    PressKey(Qt::Key_Down);                                             // gal
    PressIn(dialog, "okButton");
  });
  Read(path, 2);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().note->format, RecordFormat::FreeText);
  EXPECT_EQ(Wave().timeStep, 0.02);
  Read(path, 1);
  EXPECT_EQ(Wave(1).note->format, RecordFormat::OwnWave);
}

// The dialog

TEST_F(RecordImportScreen, TheDialogShowsWhatWasFoundAndNothingIsStoredBeforeOk) {
  const DocumentState before(doc);
  WhenDialog::Opens("CDlgImportRecord", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "記録の読込");
    EXPECT_EQ(In<QComboBox>(dialog, "formatCombo").currentText(), "気象庁 CSV");
    EXPECT_THAT(In<QLabel>(dialog, "signText").text().toStdString(), HasSubstr("1行目の SITE CODE"));
    const QStringList head = In<QPlainTextEdit>(dialog, "headText").toPlainText().split(u'\n');
    EXPECT_EQ(head.size(), 40);
    EXPECT_TRUE(head[6].startsWith(QStringLiteral("  7  ")));
    EXPECT_TRUE(head[7].startsWith(QStringLiteral("  8 > ")));
    CSpread7& grid = In<CSpread7>(dialog, "componentGrid");
    EXPECT_EQ(grid.GetCellText(1, 3) + grid.GetCellText(2, 3) + grid.GetCellText(3, 3), "NSEWUD");
    EXPECT_EQ(In<QComboBox>(dialog, "unitCombo").currentText(), "ファイルの記載（gal）");
    EXPECT_EQ(In<QLineEdit>(dialog, "stepEdit").text(), "0.01");
    EXPECT_EQ(In<QComboBox>(dialog, "offsetCombo").currentText(), "記録全体の平均を差し引く");
    EXPECT_EQ(In<QPlainTextEdit>(dialog, "warningText").toPlainText(), "警告はありません。");
    EXPECT_THAT(In<QLabel>(dialog, "caption").text().toStdString(), HasSubstr("300 点"));
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
    PressIn(dialog, "cancelButton");
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
}

TEST_F(RecordImportScreen, ComponentsAreChosenAndNamedByKeys) {
  doc.seedWaves.Add("mine");
  screen.Refresh();
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    CSpread7& grid = In<CSpread7>(dialog, "componentGrid");
    EXPECT_TRUE(grid.hasFocus());
    PressKey(Qt::Key_Space);  // NS goes off
    PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Right);
    PressKey(Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    TypeText("mine");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(grid.GetCheck(1, 1));
    EXPECT_EQ(grid.GetCellText(2, 2), "mine");
    TabTo(dialog, "okButton");
    PressKey(Qt::Key_Return);
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("mine", "mine_1", "99901見本観測点SAMPLE UD"));
  EXPECT_EQ(Wave(1).note->component, "EW");
  EXPECT_TRUE(Wave(1).current);
}

TEST_F(RecordImportScreen, WhatIsAskedHasTheFocusAndOkTellsWhatIsMissing) {
  prompt.ExpectMessage("加速度の単位がファイルに書かれていません。");
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "unitCombo");
    EXPECT_EQ(In<QComboBox>(dialog, "unitCombo").currentText(), "（選んでください）");
    EXPECT_THAT(In<QPlainTextEdit>(dialog, "warningText").toPlainText().toStdString(), HasSubstr("要確認"));
    PressIn(dialog, "okButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "unitCombo");
    for (int i = 0; i < 3; ++i) PressKey(Qt::Key_Down);
    EXPECT_EQ(In<QComboBox>(dialog, "unitCombo").currentText(), "m/s2");
    EXPECT_EQ(In<QComboBox>(dialog, "unitCombo").itemText(0), "（選んでください）");
    PressIn(dialog, "okButton");
  });
  ReadFixture("warn/SAMPLE_no_unit.txt", 1);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().note->unit, "m/s2");
  EXPECT_NEAR(PeakOf(Wave().acc).pga, 90.700143, 1e-5);
}

TEST_F(RecordImportScreen, ReturnInAFieldTakesTheEntryAndTheNextOneIsOk) {
  WhenDialog::Opens("CDlgImportRecord", [this](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "stepEdit");
    TypeText("0.02");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(doc.seedWaves.Count(), 0U);
    EXPECT_THAT(In<QLabel>(dialog, "caption").text().toStdString(), HasSubstr("300 点"));
    PressKey(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  ReadFixture("broken/no_dt.AT2", 1);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().timeStep, 0.02);
}

TEST_F(RecordImportScreen, ReturnBehindAWalkOverTheCancelButtonIsOk) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    TabTo(dialog, "cancelButton");
    TabTo(dialog, "toEdit");
    PressKey(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  EXPECT_EQ(doc.seedWaves.Count(), 3U);
}

TEST_F(RecordImportScreen, EscapeInAFieldGivesUpTheDialog) {
  for (const char* control : {"formatCombo", "headText", "componentGrid", "stepEdit", "offsetCombo",
                              "fromEdit", "warningText", "okButton"}) {
    WhenDialog::Opens("CDlgImportRecord", [control](QWidget& dialog) {
      TabTo(dialog, control);
      PressKey(Qt::Key_Escape);
      EXPECT_FALSE(dialog.isVisible()) << control;
    });
    ReadFixture("jma/SAMPLE_99901.csv");
    EXPECT_EQ(doc.seedWaves.Count(), 0U);
  }
}

TEST_F(RecordImportScreen, ABadNumberIsToldAndTheOldOneComesBack) {
  prompt.ExpectMessage("時間間隔の入力エラーです。");
  prompt.ExpectMessage("読む範囲の入力エラーです。");
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    TabTo(dialog, "stepEdit");
    TypeText("-1");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(In<QLineEdit>(dialog, "stepEdit").text(), "0.01");
    EXPECT_TRUE(In<QLineEdit>(dialog, "stepEdit").hasFocus());
    TabTo(dialog, "fromEdit");
    TypeText("x");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(In<QLineEdit>(dialog, "fromEdit").text(), "0");
    PressKey(Qt::Key_Escape);
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  EXPECT_EQ(doc.seedWaves.Count(), 0U);
}

TEST_F(RecordImportScreen, APartAndAnotherOffsetAreReadAndTold) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    TabTo(dialog, "offsetCombo");
    PressKey(Qt::Key_Down);
    EXPECT_TRUE(In<QLineEdit>(dialog, "offsetEdit").isEnabled());
    PressKey(Qt::Key_Tab);
    TypeText("0.5");
    PressKey(Qt::Key_Tab);
    TypeText("0.2");
    PressKey(Qt::Key_Tab);
    TypeText("2");
    PressKey(Qt::Key_Tab);
    EXPECT_THAT(In<QPlainTextEdit>(dialog, "warningText").toPlainText().toStdString(),
                HasSubstr("末尾が静止していない"));
    PressIn(dialog, "okButton");
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  ASSERT_EQ(doc.seedWaves.Count(), 3U);
  EXPECT_EQ(Wave().acc.size(), 181U);
  EXPECT_TRUE(Wave().note->cut);
  EXPECT_THAT(NoteLine(*Wave().note).toStdString(), HasSubstr("範囲：0.2～2 秒"));
}

TEST_F(RecordImportScreen, FreeTextIsLaidOutAsTheUserSays) {
  QByteArray text = "made up 見本\ngal dt=0.01\n";
  for (int i = 0; i < 150; ++i)
    text += QByteArray::number((i * 37) % 101 - 50) + " " + QByteArray::number((i * 53) % 97 - 48) + "\n";
  const QString path = folder.Write("two.txt", text);
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "layoutCombo");
    PressKey(Qt::Key_Down);
    EXPECT_EQ(In<CSpread7>(dialog, "componentGrid").RowCount(), 2);
    PressKey(Qt::Key_Down);
    EXPECT_EQ(In<CSpread7>(dialog, "componentGrid").RowCount(), 1);
    PressIn(dialog, "okButton");
  });
  Read(path, 1);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().acc.size(), 300U);
}

TEST_F(RecordImportScreen, MissingSamplesAndDecimalCommasAreAnswered) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "missingCheck");
    PressKey(Qt::Key_Space);
    In<QComboBox>(dialog, "unitCombo").setFocus();
    PressKey(Qt::Key_Down);
    PressIn(dialog, "okButton");
  });
  ReadFixture("text/SAMPLE_missing_marker.txt", 1);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_LT(PeakOf(Wave().acc).pga, 9000.0);
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "decimalCombo");
    PressKey(Qt::Key_Down);
    PressIn(dialog, "okButton");
  });
  ReadFixture("broken/text_decimal_comma.txt", 1);
  ASSERT_EQ(doc.seedWaves.Count(), 2U);
  EXPECT_NEAR(PeakOf(Wave(1).acc).pga, 43.548495, 1e-5);
}

TEST_F(RecordImportScreen, AFewLinesAreReadFromWhereTheUserSays) {
  prompt.ExpectMessage("行番号の入力エラーです。");
  const QString path = folder.Write("few.txt", "gal dt=0.01\n1\n-2\n3\n-4\n5\n");
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "firstLineEdit");
    TypeText("2.5");
    PressKey(Qt::Key_Tab);
    TypeText("3");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "lastLineEdit");
    TypeText("5");
    PressKey(Qt::Key_Tab);
    PressIn(dialog, "okButton");
  });
  Read(path, 2);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().acc.size(), 3U);
}

TEST_F(RecordImportScreen, SamplesBehindTheAnnouncedCountAreReadWhenTheUserWants) {
  const QString path = RecordPath("broken/npts_too_small.AT2");
  const RecordReading announced = ReadRecord(ReadAll(path), path, {}, {});
  const std::size_t count = announced.components.at(0).acc.size();
  ASSERT_GT(announced.leftOut, 0U);
  WhenDialog::Opens("CDlgImportRecord", [&](QWidget& dialog) {
    const auto shows = [&](std::size_t samples) {
      return In<QLabel>(dialog, "caption").text().contains(QStringLiteral("　%1 点").arg(samples));
    };
    EXPECT_TRUE(shows(count));
    TabTo(dialog, "allSamplesCheck");
    PressKey(Qt::Key_Space);
    EXPECT_TRUE(shows(count + announced.leftOut));
    PressIn(dialog, "okButton");
  });
  Read(path);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().acc.size(), count + announced.leftOut);
}

TEST_F(RecordImportScreen, AnotherFormatIsTriedInTheDialog) {
  WhenDialog::Opens("CDlgImportRecord", [](QWidget& dialog) {
    auto& combo = In<QComboBox>(dialog, "formatCombo");
    combo.setFocus();
    TypeText("K");  // K-NET ASCII
    EXPECT_EQ(combo.currentText(), "K-NET ASCII");
    EXPECT_THAT(In<QPlainTextEdit>(dialog, "warningText").toPlainText().toStdString(), HasSubstr("要確認"));
    EXPECT_EQ(In<CSpread7>(dialog, "componentGrid").RowCount(), 0);
    while (combo.currentText() != "気象庁 CSV") PressKey(Qt::Key_Down);
    EXPECT_EQ(In<CSpread7>(dialog, "componentGrid").RowCount(), 3);
    PressIn(dialog, "cancelButton");
  });
  ReadFixture("jma/SAMPLE_99901.csv");
  EXPECT_EQ(doc.seedWaves.Count(), 0U);
}

TEST_F(RecordImportScreen, TheHelpNamesTheTermsOfUse) {
  WhenDialog::Opens("CDlgImportRecord", [this](QWidget& dialog) {
    auto& info = In<QToolButton>(dialog, "infoButton");
    EXPECT_EQ(info.accessibleName(), "記録の読込について");
    prompt.ExpectMessage(
        QStringLiteral("記録のファイルから加速度の波形を読み込みます。OK を押すまで何も登録されません。\n\n"
                       "単位や時間間隔がファイルに書かれていないときは、指定してください。オフセットは、"
                       "ファイルが補正済みと述べていない限り、記録全体の平均を差し引きます。\n\n") +
            RecordTerms(),
        PromptIcon::Information);
    PressIn(dialog, "infoButton");
    prompt.CheckUsedUp();
    PressIn(dialog, "cancelButton");
  });
  ReadFixture("jma/SAMPLE_99901.csv");
}

TEST_F(RecordImportScreen, EveryControlOfTheDialogsHasAName) {
  const auto check = [](QWidget& dialog) {
    QSet<QString> seen;
    for (QWidget* const control : dialog.findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || control->focusProxy() ||
          control->objectName().startsWith(u"qt_"))
        continue;
      EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
      EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
      EXPECT_FALSE(seen.contains(control->objectName())) << control->objectName().toStdString();
      seen << control->objectName();
    }
    EXPECT_GT(seen.size(), 4);
    PressKey(Qt::Key_Escape);
  };
  WhenDialog::Opens("CDlgImportRecord", check);
  ReadFixture("jma/SAMPLE_99901.csv");
  WhenDialog::Opens("CDlgSelectMembers", check);
  ReadFixture("knet/20000101000000.tar");
}

// Archives

TEST_F(RecordImportScreen, MembersOfAnArchiveAreFoundAndChosenByKeys) {
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "searchEdit");
    TypeText("smph01 2");
    EXPECT_EQ(In<CSpread7>(dialog, "memberGrid").RowCount(), 6);
    PressKey(Qt::Key_A, Qt::ControlModifier);
    TypeText("smp001");
    EXPECT_EQ(In<CSpread7>(dialog, "memberGrid").RowCount(), 3);
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    PressKey(Qt::Key_Space);
    PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Space);
    EXPECT_THAT(In<QLabel>(dialog, "countText").text().toStdString(), HasSubstr("2 件を選択"));
    WhenDialog::Opens("CDlgImportRecord", [](QWidget& import) {
      EXPECT_EQ(In<CSpread7>(import, "componentGrid").RowCount(), 2);
      EXPECT_FALSE(In<QComboBox>(import, "formatCombo").isEnabled());
      PressIn(import, "okButton");
    });
    TabTo(dialog, "okButton");
    PressKey(Qt::Key_Return);
  });
  ReadFixture("knet/20000101000000.tar");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("SMP001 EW", "SMP001 NS"));
  EXPECT_EQ(Wave().note->member, "20000101000000.knt.tar.gz/SMP0010001010000.EW");
}

TEST_F(RecordImportScreen, OneMemberThatSaysAllIsReadWithoutAFurtherQuestion) {
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    PressIn(dialog, "okButton");  // nothing is chosen yet
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "memberGrid");
    PressKey(Qt::Key_Space);
    PressIn(dialog, "okButton");
  });
  prompt.ExpectMessage("読み込むファイルが選択されていません。");
  ReadFixture("knet/20000101000000.knt.tar.gz");
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("SMP001 EW"));
}

TEST_F(RecordImportScreen, AnArchiveOfOneRecordIsReadAsTheRecord) {
  Read(folder.Write("one.tar", TarBytes({{"readme.png", QByteArray("\x89PNG\0\0", 6)},
                                         {"a.EW", ReadAll(RecordPath("knet/SMP0010001010000.EW"))}})));
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("SMP001 EW"));
}

TEST_F(RecordImportScreen, AnArchiveWithoutARecordAndABombAreRefused) {
  const DocumentState before(doc);
  const QString path = folder.Write("none.tar", TarBytes({{"a.png", QByteArray("\x89PNG\0\0", 6)}}));
  prompt.ExpectMessage(path + ": 記録が入っていません。");
  Read(path);
  prompt.ExpectMessage(RecordPath("broken/zeros_bomb.gz") + ": 記録が入っていません。");
  ReadFixture("broken/zeros_bomb.gz");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
}

TEST_F(RecordImportScreen, OfAnArchiveThatIsCutWhatStandsBeforeTheCutIsOffered) {
  const QByteArray record = ReadAll(RecordPath("knet/SMP0010001010000.EW"));
  const QByteArray whole = TarBytes({{"a.EW", record}, {"b.EW", record}});
  const QString path = folder.Write("cut.tar", whole.left(whole.size() - 2200));
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    EXPECT_THAT(In<QLabel>(dialog, "errorText").text().toStdString(), HasSubstr("途中で切れています"));
    EXPECT_EQ(In<CSpread7>(dialog, "memberGrid").RowCount(), 1);
    PressIn(dialog, "chooseShownButton");
    PressIn(dialog, "okButton");
  });
  Read(path);
  EXPECT_THAT(doc.seedWaves.Names(), ElementsAre("SMP001 EW"));
}

TEST_F(RecordImportScreen, ALargeArchiveIsListedBehindADialogThatCanBeGivenUp) {
  const QByteArray record = ReadAll(RecordPath("knet/SMP0010001010000.EW"));
  std::vector<std::pair<QByteArray, QByteArray>> members;
  for (int i = 0; i < 7200; ++i) members.emplace_back("S" + QByteArray::number(10000 + i) + ".EW", record);
  const QString path = folder.Write("event.tar", TarBytes(members));
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    EXPECT_EQ(In<CSpread7>(dialog, "memberGrid").RowCount(), 7200);
    QElapsedTimer timer;
    timer.start();
    TypeText("S17199");
    EXPECT_EQ(In<CSpread7>(dialog, "memberGrid").RowCount(), 1);
    EXPECT_LT(timer.elapsed(), 2000);
    PressKey(Qt::Key_Return);
    PressKey(Qt::Key_Space);
    PressIn(dialog, "okButton");
  });
  Read(path);
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().note->member, "S17199.EW");
}

TEST(ReadBehindDialog, EscapeAsksTheWorkToStop) {
  std::atomic<bool> stopped{false};
  WhenDialog::Opens("CDlgReadRecord", [](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "読込中");
    PressKey(Qt::Key_Return);  // typed ahead, it gives nothing up
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    while (dialog.isVisible()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  });
  EXPECT_FALSE(ReadBehindDialog(nullptr, [&](const GoOn& goOn) {
    while (goOn(1, 0.5)) std::this_thread::yield();
    stopped = true;
  }));
  EXPECT_TRUE(stopped);
}

TEST(ReadBehindDialog, WhatIsDoneAtOnceShowsNoDialogAndWhatIsThrownComesOut) {
  EXPECT_TRUE(ReadBehindDialog(nullptr, [](const GoOn&) {}));
  EXPECT_THROW(ReadBehindDialog(nullptr, [](const GoOn&) { throw std::bad_alloc(); }), std::bad_alloc);
}

// The line

TEST_F(RecordImportScreen, TheLineFollowsARenameAndGoesWithAChangeOfTheSamples) {
  ReadFixture("knet/SMP0010001010000.EW");
  driver.Enter("nameEdit", "X");
  EXPECT_EQ(Wave().name, "X");
  EXPECT_THAT(Line().toStdString(), HasSubstr("SMP001"));
  driver.EnterCell("sampleGrid", 2, 2, "9");
  EXPECT_EQ(Wave().acc[1], 9.0);
  EXPECT_EQ(Line(), QString());
  EXPECT_FALSE(Wave().note);
}

TEST_F(RecordImportScreen, TheLineGoesWithAChangeOfTheStepAndStaysWithARefusedOne) {
  ReadFixture("knet/SMP0010001010000.EW");
  Wave().adjusted = true;
  prompt.ExpectQuestion(
      "振幅調整がされていますがよろしいですか？\n\n時間間隔を変更した場合、原種波形の選択、振幅調整が再度必要"
      "となります。",
      PromptAnswer::No);
  driver.Enter("timeStepEdit", "0.02");
  EXPECT_FALSE(Line().isEmpty());
  Wave().adjusted = false;
  driver.Enter("timeStepEdit", "0.02");
  EXPECT_EQ(Line(), QString());
}

TEST_F(RecordImportScreen, EachWaveHasItsOwnLineAndADeletedOneTakesItAlong) {
  ReadFixture("knet/SMP0010001010000.EW");
  ReadFixture("peer/SAMPLE_RSN0_360.AT2");
  EXPECT_THAT(Line().toStdString(), HasSubstr("AT2"));
  driver.Find<QComboBox>("nameCombo").setFocus();
  driver.Key(Qt::Key_Up);
  EXPECT_THAT(Line().toStdString(), HasSubstr("K-NET"));
  prompt.ExpectQuestion("「SMP001 EW」を削除しますがよろしいですか？", PromptAnswer::Yes);
  driver.Press("deleteButton");
  EXPECT_THAT(Line().toStdString(), HasSubstr("AT2"));
  ASSERT_EQ(doc.ResetDocument(), std::nullopt);
  screen.Refresh();
  EXPECT_EQ(Line(), QString());
}

TEST_F(RecordImportScreen, OfTwoWavesOfANameTheFirstChangesAndLosesItsLine) {
  ReadFixture("knet/SMP0010001010000.EW");
  ReadFixture("peer/SAMPLE_RSN0_360.AT2");
  driver.Enter("nameEdit", "SMP001 EW");
  driver.EnterCell("sampleGrid", 2, 2, "9");
  EXPECT_FALSE(Wave(0).note);
  EXPECT_TRUE(Wave(1).note);
}

TEST_F(RecordImportScreen, ALongLineWidensNothingAndTheWholeOfItIsToldElsewhere) {
  ReadFixture("knet/SMP0010001010000.EW");
  const int width = screen.minimumSizeHint().width();
  for (int i = 0; i < 40; ++i)
    Wave().note->warnings.push_back(QStringLiteral("とても長い警告の文です、とても長い。"));
  screen.Refresh();
  Settle();
  auto& label = driver.Find<QLabel>("recordNote");
  EXPECT_EQ(screen.minimumSizeHint().width(), width);
  EXPECT_TRUE(label.text().endsWith(u'…'));
  EXPECT_LE(label.height(), 4 * label.fontMetrics().lineSpacing());
  EXPECT_EQ(label.toolTip(), NoteLine(*Wave().note) + "\n\n" + NoteDefinitions());
  EXPECT_TRUE(label.accessibleName().endsWith(NoteLine(*Wave().note)));
  prompt.ExpectMessage(NoteDetails(*Wave().note), PromptIcon::Information);
  driver.Press("recordDetailsButton");
}

// The response route

class RespRecordImport : public testing::Test {
 protected:
  static void SetUpTestSuite() { InstallJapaneseFonts(); }
  RespRecordImport() {
    EnsureRespWave(doc);
    screen.Entered();
    doc.seedWaves.At(0).adjusted = true;
    doc.SetModified(false);
  }
  void ReadFixture(const char* fixture) {
    files.Choose(RecordPath(QString::fromLatin1(fixture)));
    driver.Press("readButton");
  }
  CSeismicWave& Wave() { return doc.seedWaves.At(0); }

  CMorvaneDoc doc{QString()};
  ScriptedPrompt prompt;
  ScriptedFiles files;
  CommandGate gate{prompt};
  CFrmRespOrigSeismicWave screen{doc, prompt, files, gate};
  ScreenDriver driver{screen};
};

TEST_F(RespRecordImport, ARecordReplacesTheWaveAndDropsTheAdjustment) {
  ReadFixture("kiknet/SMPH010001010000.EW2");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().name, "SMPH01 EW2");
  EXPECT_EQ(Wave().timeStep, 0.005);
  EXPECT_FALSE(Wave().adjusted);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_THAT(driver.Find<QLabel>("recordNote").text().toStdString(), HasSubstr("KiK-net ASCII"));
  driver.Enter("nameEdit", "X");
  EXPECT_TRUE(Wave().note);
  driver.Enter("timeStepEdit", "0.01");
  EXPECT_FALSE(Wave().note);
  EXPECT_FALSE(driver.Find<QLabel>("recordNote").isVisible());
}

TEST_F(RespRecordImport, OfSeveralComponentsOneIsTaken) {
  const DocumentState before(doc);
  WhenDialog::Opens("CDlgImportRecord", [&](QWidget& dialog) {
    CSpread7& grid = In<CSpread7>(dialog, "componentGrid");
    EXPECT_TRUE(grid.GetCheck(1, 1));
    PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Space);
    EXPECT_FALSE(grid.GetCheck(1, 1));
    EXPECT_TRUE(grid.GetCheck(2, 1));
    PressKey(Qt::Key_Space);
    EXPECT_TRUE(grid.GetCheck(2, 1));
    EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
    PressIn(dialog, "okButton");
  });
  ReadFixture("geonet/SAMPLE_SMPL.V2A");
  ASSERT_EQ(doc.seedWaves.Count(), 1U);
  EXPECT_EQ(Wave().note->component, "N80W");
  EXPECT_EQ(Wave().note->offset, 0.0);
}

TEST_F(RespRecordImport, OfAnArchiveOneMemberIsTaken) {
  WhenDialog::Opens("CDlgSelectMembers", [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QAbstractButton*>("chooseShownButton"), nullptr);
    PressKey(Qt::Key_Return);
    PressKey(Qt::Key_Space);
    PressKey(Qt::Key_Down);
    PressKey(Qt::Key_Space);
    EXPECT_FALSE(In<CSpread7>(dialog, "memberGrid").GetCheck(1, 1));
    PressIn(dialog, "okButton");
  });
  ReadFixture("knet/20000101000000.knt.tar.gz");
  EXPECT_EQ(Wave().name, "SMP001 NS");
}

TEST_F(RespRecordImport, WhatIsRefusedLeavesTheDocumentAsItWas) {
  const DocumentState before(doc);
  const QString path = RecordPath("broken/nan_text.EW");
  prompt.ExpectMessage(RecordImport({{path, {}, ReadAll(path)}}, true).Fault()->text);
  ReadFixture("broken/nan_text.EW");
  EXPECT_THAT(DocumentState(doc).DifferencesTo(before), testing::IsEmpty());
}

}  // namespace
}  // namespace tremlo::test
