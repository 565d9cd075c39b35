// JobFiles.h -- a job on the disk: NAME.nst with the texts of the fields, DATA\NAME.drw with the geometry, DATA\NAME.bmp
// with a picture of the nest, all below NestingPath, and the NC program. Saving them, and coming back from them.
#pragma once

#include "platform/Surface.h"

#include <string>

// --- the whole job (JobFiles.cpp) -------------------------------------------------------------------------

/// Saves the job: program, .nst, picture, geometry, in this order. `name` with or without ".nst". Each file gets its name
/// when it is complete. A failure is a RunTimeFault that names the file: what stands in the order before it is saved, the
/// others are as they were.
void SaveJob(const std::string& name);

/// Loads a job: fields, tables and leads, on tables that are emptied first. A missing or unusable .drw leaves no drawing; an
/// old format shows its box and ends the process. Leads are kept when the shape is developed again.
void LoadJob(const std::string& name);

/// `name`, with ".nst" behind it unless it holds that already, in any case.
std::string JobFileName(const std::string& name);

// --- the text (JobText.cpp) -------------------------------------------------------------------------------
// `file` is relative to NestingPath, which is made when it is missing. The writers work on the second name of the file, the
// first of them begins it anew; PutJobText gives it its name. Any failure is a RunTimeFault.

void WriteJobHeader(const std::string& file);
void WriteCuttingSection(const std::string& file);
void WriteNestingSection(const std::string& file);
void WritePostInputSection(const std::string& file);
void PutJobText(const std::string& file);

/// ShapeId, SourceName, JobName, and the parameter fields. Nothing that is missing or strange fails.
void ReadJobHeader(const std::string& file);
void ReadCuttingSection(const std::string& file);

/// The fields and the counts that were shown beside them.
void ReadNestingSection(const std::string& file);

// --- the geometry (JobDrawing.cpp) ------------------------------------------------------------------------

/// The untransformed elements, one record each, to the second name, which begins as a copy of the old file: records behind
/// the new count stay as they were. Makes the folder.
void WriteDrawingElements(const std::string& file);

/// The profile records, laid over what stands under the second name, which then gets its own.
void WriteDrawingProfiles(const std::string& file);

/// ProfileTable and ProfileCount, after the test of the job's format: an old one ends the process. Without a usable file
/// nothing happens. Usable: whole records for all counts, counts from 0 to 32767, kinds that exist, numbers that are some.
void ReadDrawingProfiles(const std::string& file);

/// ShadowElements, ElementTable and ElementCount; empties the mark points. Without a usable file nothing happens.
void ReadDrawingElements(const std::string& file);

// --- the picture (JobPreview.cpp) -------------------------------------------------------------------------

/// Draws the nest on the preview and saves it as a bitmap of PreviewWidth by PreviewHeight. Where nobody paints, what was
/// saved before stays. `baseName` has no folder and no extension.
void WriteJobPreview(const std::string& baseName);

/// Shows the saved picture of a job on the preview, which is cleared when the job has none. An empty name changes nothing.
void ShowJobPreview(Picture box, const std::string& name);

/// Prints JobName, or with `useSource` above 0 SourceName, on the upper left corner of a picture.
void PreviewCaption(Picture box, int useSource);
