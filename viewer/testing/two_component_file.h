#pragma once

#include <QStringList>
#include <string>

/// Bytes of a UDS-1992 file made by hand, with two components and a value of its own in every field.
std::string TwoComponentFile();

/// The same with every text as wide as its field can hold.
std::string WideTextFile();

/// A group as the viewer is to show the file's fields: its title, and label, value and unit of each line.
struct CExpectedGroup {
    QString title;
    QStringList lines;
};

/// The groups that are shown everywhere, in order.
QList<CExpectedGroup> ExpectedGroups();
/// What the full report and nothing else adds.
QStringList ExpectedFurtherLines();
