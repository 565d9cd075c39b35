// SampleTables.h -- the shipped post-processor tables as lists of keys, read by plain means of the tests' own.
#pragma once

#include <string>
#include <vector>

struct TableKey {
    std::string Section;
    std::string Name;
    std::string Value;
};

/// The shipped tables, as PPR_INI names them.
inline const std::vector<std::string> SampleTables = {
    "PPR.ini",
    "PPR_LinuxCNC.ini",
    "PPR_SubPrograms.ini",
    "ppr\\GRBL_Laser.ini",
    "ppr\\ISO_OxyFuel.ini",
    "ppr\\ISO_SubPerPart.ini",
    "ppr\\ISO_SubPerProfile.ini",
    "ppr\\ISO_WaterJet.ini",
    "ppr\\LinuxCNC_Laser.ini",
    "ppr\\LinuxCNC_Plasma.ini",
};

/// The one whose control knows no compensation.
inline const std::string TableWithoutCompensation = "ppr\\GRBL_Laser.ini";

/// The name of a table as part of a case's name.
std::string TableLabel(const std::string& table);

/// Path of a file of the shipped station; '\\' separates, too.
std::string StationFile(const std::string& name);

/// A file's bytes; a missing one fails the case.
std::string StationBytes(const std::string& name);

/// All keys of a table in file order. Lines that are neither blank, comment, header nor key fail the case.
std::vector<TableKey> ReadTable(const std::string& name);
