// SPDX-License-Identifier: MIT
// What the user reads: the report, its names and numbers, and the progress of long work.

#ifndef ASSEMBLY_REPORT_H
#define ASSEMBLY_REPORT_H

#include <cstddef>
#include <string>
#include <vector>

namespace assembly {

struct Assembly;
struct CheckResult;
struct ContactUpdate;
struct Loss;
struct Part;

/// Prints a table of the parts, the pairs that clash, touch and contain, the bounds of all, and the
/// bolts in the orders of drilling.
void printReport(Assembly const &assembly, CheckResult const &result);
/// The parts that changed since a document was written, and the pairs that came and went.
void printChanges(std::string const &document, std::vector<std::string> const &changes,
                  ContactUpdate const &update);
/// The line of sight of a pick with the parts hit, and the parts cut by a section, where there are
/// such.
void printViews(Assembly const &assembly, CheckResult const &result);
/// What the forms of an exchange file did not keep.
void printLosses(std::string const &file, std::vector<Loss> const &losses);

/// The text with its control characters spelled out, such as \\x1b: a name from a file cannot break
/// the line or steer the terminal.
std::string printable(std::string const &text);

/// To six significant digits.
std::string number(double value);
/// Length, width and height of the blank of a part, at the part's size in the assembly.
std::string stockSize(Part const &part);

/// One line on standard error, which is overwritten whenever another percent of the work is done,
/// and erased at its end. It is shown only when standard error is a terminal.
class Progress {
public:
    Progress(std::string task, std::size_t steps);
    ~Progress();
    Progress(Progress const &) = delete;
    Progress &operator=(Progress const &) = delete;

    /// Begins the next step; `detail` names what it works on.
    void step(std::string const &detail = {});

private:
    std::string const task_;
    std::size_t const steps_;
    bool const visible_;
    std::size_t done_ = 0;
    std::size_t percent_ = 0;
    bool isShown_ = false;
};

} // namespace assembly

#endif
