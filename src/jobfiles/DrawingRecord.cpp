#include "jobfiles/DrawingRecord.h"

#include <bit>
#include <concepts>

namespace
{
constexpr int BitsPerByte = 8;

/// Where the next member is written.
struct Packer {
    char* At;

    template <std::unsigned_integral Number> void Bytes(Number number)
    {
        for (std::size_t i = 0; i < sizeof number; ++i) {
            *At++ = static_cast<char>(number >> (BitsPerByte * i) & 0xFF);
        }
    }
    void operator()(std::int16_t number)
    {
        Bytes(static_cast<std::uint16_t>(number));
    }
    void operator()(std::int32_t number)
    {
        Bytes(static_cast<std::uint32_t>(number));
    }
    void operator()(double number)
    {
        Bytes(std::bit_cast<std::uint64_t>(number));
    }
};

/// Where the next member is read.
struct Unpacker {
    const char* At;

    template <std::unsigned_integral Number> Number Bytes()
    {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i) {
            number |= std::uint64_t{static_cast<unsigned char>(*At++)} << (BitsPerByte * i);
        }
        return static_cast<Number>(number);
    }
    void operator()(std::int16_t& number)
    {
        number = static_cast<std::int16_t>(Bytes<std::uint16_t>());
    }
    void operator()(std::int32_t& number)
    {
        number = static_cast<std::int32_t>(Bytes<std::uint32_t>());
    }
    void operator()(double& number)
    {
        number = std::bit_cast<double>(Bytes<std::uint64_t>());
    }
};

/// The members in file order: the one list for both ways. `Record` is const for the way out.
template <typename Step, typename Record> void WalkProfile(Step& step, Record& r)
{
    step(r.Status);
    step(r.LeadInLength);
    step(r.LeadInAngle);
    step(r.LeadInLineOn);
    step(r.LeadInRadius);
    step(r.LeadInSpare);
    step(r.LeadInArcOn);
    step(r.LeadOutLength);
    step(r.LeadOutAngle);
    step(r.LeadOutLineOn);
    step(r.LeadOutRadius);
    step(r.LeadOutSpare);
    step(r.LeadOutArcOn);
    step(r.RecordNumber);
    step(r.LeadElement);
    step(r.ProfileLength);
    step(r.LeadPosition);
    step(r.Side);
    step(r.Spare1);
    step(r.CornerSnap);
    step(r.Spare2);
}

template <typename Step, typename Record> void WalkElement(Step& step, Record& r)
{
    step(r.GeoA);
    step(r.GeoB);
    step(r.GeoC);
    step(r.Kind);
    step(r.StartX);
    step(r.StartY);
    step(r.EndX);
    step(r.EndY);
    step(r.Length);
    step(r.Sense);
    step(r.Closing);
}
} // namespace

void PackCount(char* record, std::size_t offset, std::int32_t count)
{
    Packer packer{record + offset};
    packer(count);
}

void PackProfile(char* record, const ProfileRecord& profile)
{
    Packer packer{record + ProfileAt};
    WalkProfile(packer, profile);
}

void PackElement(char* record, const ProfileElement& element)
{
    Packer packer{record + ElementAt};
    WalkElement(packer, element);
}

std::int32_t UnpackCount(std::string_view record, std::size_t offset)
{
    std::int32_t count = 0;
    Unpacker unpacker{record.data() + offset};
    unpacker(count);
    return count;
}

ProfileRecord UnpackProfile(std::string_view record)
{
    ProfileRecord profile;
    Unpacker unpacker{record.data() + ProfileAt};
    WalkProfile(unpacker, profile);
    return profile;
}

ProfileElement UnpackElement(std::string_view record)
{
    ProfileElement element;
    Unpacker unpacker{record.data() + ElementAt};
    WalkElement(unpacker, element);
    return element;
}
