// ProfileRecord.h -- the cutting data of one profile: its leads and where they stand.
#pragma once

#include "state/Flag.h"

#include <cstdint>

/// Values of ProfileRecord::Status.
inline constexpr std::int16_t LeadUnset = 0;
inline constexpr std::int16_t LeadStraight = 1; ///< open profiles and corners: one straight piece
inline constexpr std::int16_t LeadNormal = 2;   ///< straight piece and quarter arc

/// The members stand in file order; packed they take 120 bytes. Lengths in the job's unit, angles in radians.
struct ProfileRecord {
    std::int16_t Status = LeadUnset;
    double LeadInLength = 0.0; ///< field "LeadIn : A"
    double LeadInAngle = 0.0;
    Flag LeadInLineOn = FlagOff;
    double LeadInRadius = 0.0; ///< field "LeadIn : B"
    double LeadInSpare = 0.0;
    Flag LeadInArcOn = FlagOff;
    double LeadOutLength = 0.0; ///< field "LeadOut : C"
    double LeadOutAngle = 0.0;
    Flag LeadOutLineOn = FlagOff;
    double LeadOutRadius = 0.0; ///< field "LeadOut : D"
    double LeadOutSpare = 0.0;
    Flag LeadOutArcOn = FlagOff;
    std::int16_t RecordNumber = 0;
    std::int16_t LeadElement = 1; ///< index in ElementTable of the element that holds the lead point
    double ProfileLength = 0.0;   ///< from MeasureProfiles
    double LeadPosition = 0.0;    ///< distance of the lead point from the profile's first point
    double Side = 0.0;            ///< +1 leads left of travel, -1 right
    double Spare1 = 0.0;
    Flag CornerSnap = FlagOff; ///< a lead near a corner jumps onto it
    double Spare2 = 0.0;
};
