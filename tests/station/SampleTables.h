// SampleTables.h -- the shipped post-processor tables as lists of keys, read by plain means of the tests' own.
#pragma once

#include <string>
#include <vector>

struct TableKey {
    std::string Section;
    std::string Name;
    std::string Value;
};

/// Names of the shipped tables.
inline const std::vector<std::string> SampleTables = {"PPR.ini", "PPR_LinuxCNC.ini", "PPR_SubPrograms.ini"};

/// Path of a file of the shipped station.
std::string StationFile(const std::string& name);

/// A file's bytes; a missing one fails the case.
std::string StationBytes(const std::string& name);

/// All keys of a table in file order. Lines that are neither blank, comment, header nor key fail the case.
std::vector<TableKey> ReadTable(const std::string& name);
