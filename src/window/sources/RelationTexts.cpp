#include "window/sources/RelationTexts.h"

#include <utility>
#include <vector>

namespace tremlo {

namespace {

/// What the two forms differ in.
struct Form {
  QString title, threshold, near, distance;
};

QString FormulaOf(const Form& form) {
  return QStringLiteral(
             "<p class=title>%1</p>"
             "<p class=formula><i>S</i> = <i>A</i> × 10<sup><i>L</i></sup></p>"
             "<p class=formula><i>L</i> = <i>a</i> <i>M</i> + <i>b</i> (%2 − <i>M</i>)<sup>2</sup>"
             " + <i>c</i> <i>D</i> − log<sub>10</sub>(%4 + %3) − (<i>e</i> <i>D</i> + <i>f</i>) %4"
             " + <i>g</i></p>"
             "<p class=note><i>b</i> の項は <i>M</i> &gt; %2 のときだけ加える。</p>")
      .arg(form.title, form.threshold, form.near, form.distance);
}

QString Equivalent() {
  return QStringLiteral("<i>X</i><sub>eq</sub>");
}

/// The letters and their meanings, in the order in which the formulas bring them.
std::vector<std::pair<QString, QString>> Terms() {
  return {
      {QStringLiteral("<i>S</i>"), QStringLiteral("加速度応答スペクトル (gal)。減衰定数 5 %、周期ごとの値")},
      {QStringLiteral("<i>A</i>"), QStringLiteral("地盤種別（A、B、C、D）ごとの係数（表の第2～5列）")},
      {QStringLiteral("<i>M</i>"), QStringLiteral("断層のマグニチュード")},
      {QStringLiteral("<i>D</i>"), QStringLiteral("断層面の中心の深さ (km)")},
      {QStringLiteral("<i>X</i>"),
       QStringLiteral("最短距離 (km)。断層面に 2 km 間隔でとった点のうち、現場に最も近い点までの距離")},
      {Equivalent(),
       QStringLiteral("等価震源距離 (km)。断層面を 2 km 四方に分けた <i>n</i> 個の要素の中心までの距離を "
                      "<i>r<sub>k</sub></i> として、1/<i>X</i><sub>eq</sub><sup>2</sup> = (1/<i>n</i>) "
                      "Σ 1/<i>r<sub>k</sub></i><sup>2</sup>")},
      {QStringLiteral("<i>a</i>～<i>g</i>"),
       QStringLiteral("周期ごとの係数。<i>a</i>、<i>b</i>、<i>c</i>、<i>d</i>、<i>e</i>、<i>f</i>、<i>g</i> "
                      "の順に表の第6、7、8、12、10、9、11列")},
      {QStringLiteral("表"),
       QStringLiteral("フォルダー DamCoef<br>"
                      "水平：H20_MinDis_H.csv（最短距離）、H20_Ehd_H.csv（等価震源距離）<br>"
                      "鉛直：H20_MinDis_V.csv（最短距離）、H20_Ehd_V.csv（等価震源距離）")},
  };
}

}  // namespace

QString RelationFormulas() {
  return FormulaOf({QStringLiteral("最短距離 <i>X</i> による式"), QStringLiteral("5.0"),
                    QStringLiteral("<i>d</i> 10<sup>0.5 <i>M</i></sup>"), QStringLiteral("<i>X</i>")}) +
         FormulaOf({QStringLiteral("等価震源距離 %1 による式").arg(Equivalent()), QStringLiteral("6.0"),
                    QStringLiteral("<i>d</i>"), Equivalent()});
}

QString RelationTerms() {
  QString rows;
  for (const auto& [letter, meaning] : Terms())
    rows += QStringLiteral("<tr><td class=letter>%1</td><td>%2</td></tr>").arg(letter, meaning);
  return QStringLiteral("<table cellspacing=0 cellpadding=2>%1</table>").arg(rows);
}

QString SpokenRelation() {
  return QStringLiteral(
      "距離減衰式は、断層面ごとに現場の加速度応答スペクトル S を周期ごとに求めます。"
      "どちらの式も S は A かける 10 の L 乗です。\n"
      "最短距離 X による式：L は、a かける M、足す b かける (5.0 引く M) の2乗、足す c かける D、"
      "引く log10(X 足す d かける 10 の 0.5M 乗)、引く (e かける D 足す f) かける X、足す g。"
      "b の項は M が 5.0 より大きいときだけ加えます。\n"
      "等価震源距離 Xeq による式：L は、a かける M、足す b かける (6.0 引く M) の2乗、足す c かける D、"
      "引く log10(Xeq 足す d)、引く (e かける D 足す f) かける Xeq、足す g。"
      "b の項は M が 6.0 より大きいときだけ加えます。\n"
      "S：加速度応答スペクトル (gal)。減衰定数 5 %、周期ごとの値。\n"
      "A：地盤種別（A、B、C、D）ごとの係数（表の第2～5列）。\n"
      "M：断層のマグニチュード。\n"
      "D：断層面の中心の深さ (km)。\n"
      "X：最短距離 (km)。断層面に 2 km 間隔でとった点のうち、現場に最も近い点までの距離。\n"
      "Xeq：等価震源距離 (km)。断層面を 2 km 四方に分けた n 個の要素の中心までの距離を rk として、"
      "Xeq の2乗の逆数は、rk の2乗の逆数の平均。\n"
      "a～g：周期ごとの係数。a、b、c、d、e、f、g の順に表の第6、7、8、12、10、9、11列。\n"
      "表：フォルダー DamCoef。水平：H20_MinDis_H.csv（最短距離）、H20_Ehd_H.csv（等価震源距離）。"
      "鉛直：H20_MinDis_V.csv（最短距離）、H20_Ehd_V.csv（等価震源距離）。\n"
      "図：地表の現場から断層面の最も近い点までが X、断層面の各要素の中心までの距離から Xeq、"
      "地表から断層面の中心までの深さが D。");
}

}  // namespace tremlo
