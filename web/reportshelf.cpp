#include "web/reportshelf.h"

#include <algorithm>

#include "db/letters.h"
#include "ui/captions.h"
#include "web/http.h"

namespace web {

namespace {

/// Of all reports of a session, but for the last one, which is shown whatever it takes.
constexpr std::size_t mostBytes = std::size_t{64} * 1024 * 1024;

KeptReport::Cell cellOf(const db::Value& value) {
    const auto& content = value.content();
    if (std::holds_alternative<db::Bytes>(content)) return {};
    const bool number = std::holds_alternative<std::int64_t>(content) || std::holds_alternative<double>(content);
    return {value.textOr(), number};
}

std::vector<std::vector<KeptReport::Cell>> cellsOf(const db::Recordset& rows) {
    std::vector<std::vector<KeptReport::Cell>> cells(rows.rowCount());
    for (std::size_t row = 0; row < cells.size(); ++row) {
        for (std::size_t column = 0; column < rows.fields().size(); ++column)
            cells[row].push_back(cellOf(rows.value(row, column)));
    }
    return cells;
}

std::size_t bytesOf(const KeptReport& report) {
    std::size_t bytes = 0;
    for (const auto& row : report.rows)
        for (const auto& cell : row) bytes += sizeof cell + cell.text.size();
    return bytes;
}

/// Characters that fit a line of an upright page of A4 at the size in which reports are printed
/// (web/client/report.css).
constexpr std::size_t uprightLine = 90;
/// A longer text breaks its lines.
constexpr std::size_t longestCell = 30;

/// Whether the columns need the long side of the paper.
bool liesAcross(const KeptReport& report) {
    std::size_t line = 0;
    for (std::size_t column = 0; column < report.columns.size(); ++column) {
        std::size_t widest = db::characterCount(report.columns[column]);
        for (const auto& row : report.rows) widest = std::max(widest, db::characterCount(row[column].text));
        line += std::min(widest, longestCell) + 2;
    }
    return line > uprightLine;
}

std::string tableOf(const KeptReport& report) {
    std::string html = "<table>\n<thead><tr>";
    for (const auto& column : report.columns) html += "<th scope=\"col\">" + htmlEscaped(column) + "</th>";
    html += "</tr></thead>\n<tbody>\n";
    for (const auto& row : report.rows) {
        html += "<tr>";
        for (const auto& cell : row)
            html += (cell.number ? "<td class=\"number\">" : "<td>") + htmlEscaped(cell.text) + "</td>";
        html += "</tr>\n";
    }
    return html + "</tbody>\n</table>\n";
}

std::string csvCell(const KeptReport::Cell& cell) {
    std::string text = cell.text;
    const bool formula =
        !cell.number && !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != std::string_view::npos;
    if (formula) text.insert(0, "'");
    if (text.find_first_of("\",\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

std::string csvLine(const std::vector<KeptReport::Cell>& cells) {
    std::string line;
    for (const auto& cell : cells) line += (&cell == &cells.front() ? "" : ",") + csvCell(cell);
    return line + "\r\n";
}

}  // namespace

std::uint64_t ReportShelf::keep(const ui::Report& report, const std::string& hospital) {
    auto kept = std::make_shared<KeptReport>();
    kept->name = report.name;
    kept->title = report.heading();
    kept->period = report.period;
    kept->hospital = hospital;
    kept->made = db::DateTime::now().text();
    for (const std::string& column : report.rows.fields()) kept->columns.push_back(ui::columnCaption(column));
    kept->rows = cellsOf(report.rows);
    kept->bytes = bytesOf(*kept);

    const std::lock_guard lock(mutex_);
    kept->id = ++last_;
    bytes_ += kept->bytes;
    reports_.push_back(std::move(kept));
    while (reports_.size() > most_ || (reports_.size() > 1 && bytes_ > mostBytes)) {
        bytes_ -= reports_.front()->bytes;
        reports_.pop_front();
    }
    return last_;
}

std::shared_ptr<const KeptReport> ReportShelf::find(std::uint64_t id) const {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(reports_.begin(), reports_.end(), [&](const auto& kept) { return kept->id == id; });
    return found == reports_.end() ? nullptr : *found;
}

std::string reportPage(const KeptReport& report, const std::string& style, const std::string& script) {
    const std::string heading = htmlEscaped(report.title);
    const std::string count = report.rows.size() == 1 ? "1 row" : std::to_string(report.rows.size()) + " rows";
    std::string html =
        "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + heading +
        "</title>\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<link rel=\"stylesheet\" href=\"" +
        style + "\">\n<script type=\"module\" src=\"" + script + "\"></script>\n</head>\n<body class=\"report" +
        (liesAcross(report) ? " across" : "") +
        "\">\n"
        "<header class=\"report-head\">\n<p>" +
        htmlEscaped(report.hospital) + "</p>\n<h1>" + heading + "</h1>\n" +
        (report.period.empty() ? "" : "<p>" + htmlEscaped(report.period) + "</p>\n") + "<p>" +
        htmlEscaped(report.made) + " &middot; " + count +
        "</p>\n</header>\n<div class=\"report-tools\"><button type=\"button\" id=\"print\">Print</button><a "
        "href=\"/reports/" +
        std::to_string(report.id) + ".csv\">Download as CSV</a></div>\n<main>\n";
    html += report.rows.empty() ? "<p class=\"report-empty\">There is nothing to show.</p>\n" : tableOf(report);
    return html + "</main>\n</body>\n</html>\n";
}

std::string reportCsv(const KeptReport& report) {
    std::vector<KeptReport::Cell> heads;
    heads.reserve(report.columns.size());
    for (const auto& column : report.columns) heads.push_back({column, false});
    // The mark tells spreadsheets that the text is UTF-8.
    std::string csv = "\xEF\xBB\xBF" + csvLine(heads);
    for (const auto& row : report.rows) csv += csvLine(row);
    return csv;
}

}  // namespace web
