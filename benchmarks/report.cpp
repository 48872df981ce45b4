// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// benchmark_report GOALS SHARED STATIC SVG: reads the goals and the CSV output of the benchmarks
// for both variants, with medians of repetitions; prints tables and draws a chart.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Nanoseconds by "OPERATION/TYPE" and by library.
using Times = std::map<std::string, std::map<std::string, double>>;

struct Goal {
    std::string operation;
    char type;
    std::string most[2];  // with the shared library, with the archive
};

struct Row {
    std::string operation, peer;
    char type = 'd';
    double ours = 0, best = 0, limit = 0, ratio = 0, goal = 0, toLimit = 0;  // 0 for none
};

constexpr double kMostOfLimit = 1.10;

std::vector<Goal> readGoals(const char* path) {
    std::ifstream file(path);
    std::vector<Goal> goals;
    for (std::string line; std::getline(file, line);) {
        const auto end = line.find("  ");
        if (line[0] == '#' || end == std::string::npos) continue;
        std::istringstream rest(line.substr(end));
        for (const char type : {'d', 'f'}) {
            Goal goal{line.substr(0, end), type, {}};
            rest >> goal.most[0] >> goal.most[1];
            goals.push_back(goal);
        }
    }
    if (goals.empty()) throw std::runtime_error(std::string("no goals in ") + path);
    return goals;
}

Times readTimes(const char* path) {
    std::ifstream file(path);
    Times times;
    for (std::string line; std::getline(file, line);) {
        // "OPERATION/TYPE/WHO_median",iterations,real,cpu,unit,bytes per second,items per
        // second,...
        const auto median = line.find("_median\",");
        if (line[0] != '"' || median == std::string::npos) continue;
        const auto who = line.rfind('/', median);
        std::istringstream fields(line.substr(median));
        std::string field;
        for (int i = 0; i < 7; ++i) std::getline(fields, field, ',');
        times[line.substr(1, who - 1)][line.substr(who + 1, median - who - 1)] =
            1e9 / std::stod(field);
    }
    if (times.empty()) throw std::runtime_error(std::string("no medians in ") + path);
    return times;
}

std::vector<Row> compare(const std::vector<Goal>& goals, const Times& times, bool shared) {
    const double call = times.at("call/d").at("ours");
    std::vector<Row> rows;
    for (const Goal& g : goals) {
        const auto found = times.find(g.operation + "/" + g.type);
        if (found == times.end()) continue;
        Row r;
        r.operation = g.operation;
        r.type = g.type;
        for (const auto& [who, ns] : found->second) {
            if (who == "ours") {
                r.ours = ns;
            } else if (who == "limit") {
                r.limit = ns;
            } else if (r.best == 0 || ns < r.best) {
                r.best = ns;
                r.peer = who;
            }
        }
        const std::string& most = g.most[shared ? 0 : 1];
        if (most == "call") {
            r.best = call;
            r.peer = "one call";
            r.goal = kMostOfLimit;
        } else if (most != "-") {
            r.goal = std::stod(most);
        }
        if (r.best > 0) r.ratio = r.ours / r.best;
        if (r.limit > 0) r.toLimit = r.ours / (r.limit + (shared ? call : 0));
        rows.push_back(r);
    }
    return rows;
}

std::string number(double x) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", x);
    return x > 0 ? text : "";
}
const char* holds(double x, double most) {
    return x <= 0 || most <= 0 ? "" : x < most + 0.005 ? "yes" : "no";  // as rounded in the table
}

void printTable(const char* title, const std::vector<Row>& rows) {
    std::printf("\n%s\n\n", title);
    const char* const format =
        "| %-28s | %-1s | %7s | %-8s | %7s | %5s | %4s | %-5s | %7s | %8s | %-5s |\n";
    std::printf(format, "Operation", "", "ours", "peer", "its", "ratio", "goal", "holds", "limit",
                "to limit", "holds");
    std::printf("|---|---|--:|---|--:|--:|--:|---|--:|--:|---|\n");
    int goals[2] = {};
    int limits[2] = {};
    for (const Row& r : rows) {
        const char type[] = {r.type, 0};
        const char* const reached = holds(r.ratio, r.goal);
        const char* const near = holds(r.toLimit, kMostOfLimit);
        if (*reached) ++goals[*reached == 'y'];
        if (*near) ++limits[*near == 'y'];
        std::printf(format, r.operation.c_str(), type, number(r.ours).c_str(), r.peer.c_str(),
                    number(r.best).c_str(), number(r.ratio).c_str(), number(r.goal).c_str(),
                    reached, number(r.limit).c_str(), number(r.toLimit).c_str(), near);
    }
    std::printf("\nOf %d goals %d hold; %d of %d are within %.2f of the limit.\n",
                goals[0] + goals[1], goals[1], limits[1], limits[0] + limits[1], kMostOfLimit);
}

/// Draws the ratios to the best peer as bars: the shared library above, the archive below.
void draw(const char* path, const std::vector<Row> (&variants)[2]) {
    constexpr int kLeft = 260, kUnit = 250, kLine = 20, kTop = 50;
    constexpr double kMost = 2.2;
    std::ostringstream bars;
    std::ostringstream labels;
    int y = kTop;
    for (std::size_t i = 0; i < variants[0].size(); ++i) {
        const Row& shared = variants[0][i];
        if (shared.ratio <= 0) continue;
        labels << "<text x='" << kLeft - 8 << "' y='" << y + 13 << "' text-anchor='end'>"
               << shared.operation << ", " << (shared.type == 'd' ? "double" : "float")
               << "</text>\n";
        for (int v = 0; v < 2; ++v) {
            const Row& r = variants[v].at(i);
            const double width = kUnit * (r.ratio < kMost ? r.ratio : kMost);
            const int top = y + 1 + 8 * v;
            bars << "<rect x='" << kLeft << "' y='" << top << "' width='" << number(width)
                 << "' height='7' fill='" << (v == 0 ? "#3b6ea5" : "#e0a030") << "'/>\n";
            if (r.goal > 0) {
                bars << "<rect x='" << number(kLeft + kUnit * r.goal - 1) << "' y='" << top
                     << "' width='2' height='7' fill='#222'/>\n";
            }
            const double free = r.goal * kUnit > width ? r.goal * kUnit : width;
            labels << "<text x='" << number(kLeft + free + 4) << "' y='" << top + 7
                   << "' font-size='8'>" << number(r.ratio) << " " << r.peer << "</text>\n";
        }
        y += kLine;
    }
    const int one = kLeft + kUnit;
    std::ofstream svg(path);
    svg << "<svg xmlns='http://www.w3.org/2000/svg' width='" << kLeft + int(kUnit * kMost) + 90
        << "' height='" << y + 10 << "' font-family='sans-serif' font-size='12'>\n"
        << "<rect width='100%' height='100%' fill='white'/>\n"
        << "<text x='" << kLeft << "' y='18'>Time relative to the fastest peer (1.00), lower is "
        << "better; goals in black</text>\n"
        << "<text x='" << kLeft << "' y='36'><tspan fill='#3b6ea5'>shared library</tspan>, "
        << "<tspan fill='#b07810'>archive optimised at link time</tspan></text>\n"
        << bars.str() << "<line x1='" << one << "' x2='" << one << "' y1='" << kTop - 6 << "' y2='"
        << y << "' stroke='#999'/>\n"
        << labels.str() << "</svg>\n";
    if (!svg.flush()) throw std::runtime_error(std::string("cannot write ") + path);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "Usage: " << argv[0] << " GOALS SHARED STATIC SVG\n";
        return 1;
    }
    try {
        const std::vector<Goal> goals = readGoals(argv[1]);
        const std::vector<Row> variants[] = {compare(goals, readTimes(argv[2]), true),
                                             compare(goals, readTimes(argv[3]), false)};
        printTable(
            "Shared library: nanoseconds per item; \"to limit\" is the ratio to the limit plus one "
            "call",
            variants[0]);
        printTable("Archive with link-time optimisation: nanoseconds per item", variants[1]);
        draw(argv[4], variants);
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 1;
    }
}
