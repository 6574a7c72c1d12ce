#pragma once

// A list as every screen keeps it: a table of texts, row 0 the headers, data from row 1. It has no
// widget; GridView (screen/grid_view.h) shows it. A header may be empty; a column without one is
// never written to a record.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace hotel {

class TextTable {
public:
    TextTable() = default;
    explicit TextTable(const QStringList& headers) { setHeaders(headers); }

    // Replaces headers and drops all data rows.
    void setHeaders(const QStringList& headers);
    const QStringList& headers() const { return rows_.first(); }

    int rows() const { return int(rows_.size()); } // header row included: an empty list has 1
    int cols() const { return int(rows_.first().size()); }
    int dataRows() const { return rows() - 1; }

    // Column with the header, or -1; an empty header finds none.
    int column(QStringView header) const;
    // Appends a column; existing rows get an empty cell. Gives its index.
    int addColumn(const QString& header);
    void removeColumn(int column);
    void moveColumn(int from, int to);
    void setHeader(int column, const QString& header) { setText(0, column, header); }

    // A cell outside the table reads as empty. Writing outside it, and moving or removing a row or
    // column that isn't there, changes nothing. Row 0 is never moved or removed.
    QString text(int row, int column) const;
    QString text(int row, QStringView header) const { return text(row, column(header)); }
    void setText(int row, int column, const QString& text);
    void setText(int row, QStringView header, const QString& value) {
        setText(row, column(header), value);
    }

    const QStringList& row(int row) const { return rows_.at(row); }

    // A list of cells that is too short is filled up with empty ones, one too long is cut.
    void setRow(int row, const QStringList& cells);
    int addRow(const QStringList& cells = {}); // gives the new row's index
    void insertRow(int row, const QStringList& cells = {});
    void removeRow(int row);
    void moveRow(int from, int to);
    void clearRows(); // keeps the headers

    // First data row at or behind `from` whose cell equals `text`, or -1.
    int find(int column, QStringView text, int from = 1) const;

    // Sorts the data rows by a column, stably. Natural order compares two cells as numbers when
    // both are numbers throughout, numbers ahead of other texts, else as text by character code.
    // The last `totalRows` rows, which hold sums, stay last. Gives for each row the row where it stood
    // before.
    enum class Order { Text, Number, Natural };
    QList<int> sort(int column, Order order, bool descending = false, int totalRows = 0);

    // Writes 1, 2, 3, ... into the column, in `format` (see FormatNumber).
    void numberRows(int column, QStringView format = u"#0");

private:
    bool hasColumn(int column) const { return column >= 0 && column < cols(); }
    bool isDataRow(int row) const { return row >= 1 && row < rows(); }
    QStringList fitted(QStringList cells) const;

    QList<QStringList> rows_{QStringList{}};
};

} // namespace hotel
