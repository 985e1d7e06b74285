#pragma once

#include <QStringList>

#include <string>

/// Bytes of a UDS-1992 file made by hand, with two components and a different value in every field.
std::string TwoComponentFile();

/// The same with every text as wide as its field allows.
std::string WideTextFile();

/// A group as the viewer should show the file's fields: its title, and the label, value, and unit of each line.
struct CExpectedGroup {
    QString title;
    QStringList lines;
};

/// The groups that are shown everywhere, in order.
QList<CExpectedGroup> ExpectedGroups();
/// What only the full report adds.
QStringList ExpectedFurtherLines();
