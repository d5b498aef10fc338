#pragma once

#include "core/graphs/GridData.h"
#include "core/location/SitePosition.h"

#include <vector>

namespace tremlo {

/// Texts in one column, each straight over the string that it edits. A row has its title at the left, or its
/// number when it has none; the column has one of its own, or none.
class TextRows : public GridData {
 public:
  struct Row {
    QString title;
    QString* text;  ///< outlives the rows
  };
  explicit TextRows(std::vector<Row> rows, QString columnTitle = {})
      : m_rows(std::move(rows)), m_columnTitle(std::move(columnTitle)) {}

  int RowCount() const override { return static_cast<int>(m_rows.size()); }
  int ColumnCount() const override { return 1; }
  QString Text(int row, int column) const override;
  void SetText(int row, int column, const QString& text) override;
  CellFormat Format(int row, int column) const override;

 private:
  bool Holds(int row) const { return row >= 1 && row <= RowCount(); }

  std::vector<Row> m_rows;
  QString m_columnTitle;
};

/// The job texts and the site texts of the record, which outlives the rows.
std::vector<TextRows::Row> JobRows(SiteRecord& site);
std::vector<TextRows::Row> SiteRows(SiteRecord& site);
std::vector<TextRows::Row> CommentRows(SiteRecord& site);

/// The position: latitude and longitude, each in degrees, minutes and seconds. Degrees and minutes are shown
/// without decimals and seconds with four; a number that is not written anew keeps all its digits. An emptied
/// cell, or a number that is not finite, leaves the position as it was.
class PositionRows : public GridData {
 public:
  /// The position outlives the rows.
  explicit PositionRows(SitePosition& position) : m_position(position) {}

  int RowCount() const override { return 2; }
  int ColumnCount() const override { return 3; }
  QString Text(int row, int column) const override;
  QString ExactText(int row, int column) const override;
  bool WouldChange(int row, int column, const QString& text) const override;
  void SetText(int row, int column, const QString& text) override;
  CellFormat Format(int row, int column) const override;

 private:
  double* Find(int row, int column) const;

  SitePosition& m_position;
};

/// The plane zone, chosen from the labels of the 19.
class ZoneRow : public GridData {
 public:
  /// The record outlives the row.
  explicit ZoneRow(SiteRecord& site) : m_site(site) {}

  int RowCount() const override { return 1; }
  int ColumnCount() const override { return 1; }
  QString Text(int row, int column) const override;
  void SetText(int row, int column, const QString& text) override;
  CellFormat Format(int row, int column) const override;

 private:
  SiteRecord& m_site;
};

}  // namespace tremlo
