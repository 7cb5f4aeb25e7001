#include "yprotocoll/YAnswers.h"

#include "yprotocoll/DimmingCurve.h"
#include "yprotocoll/YBufferReader.h"
#include "yprotocoll/YMessageError.h"

#include <spdlog/fmt/fmt.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <type_traits>

namespace {

/// Where decoding stands: the payload, and the flags byte whose bits are being told apart.
struct Cursor {
    YBufferReader reader;
    unsigned flags = 0;
};

// How a field's value is taken from the wire. Most follow from the member's type.

AnswerLevel readLevel(YBufferReader& reader) {
    const std::uint8_t raw = reader.readUInt8();
    return {raw, shareFromLevel(raw)};
}

AnswerAddress readAddress(YBufferReader& reader) {
    constexpr std::uint8_t broadcast = 254;
    const unsigned byte = reader.readUInt8();
    if (byte == broadcast)
        return {.isAll = true};
    const bool isGroup = byte >> 5U == 0b100U;
    const unsigned number = (byte >> 1U) & (isGroup ? 0x0fU : 0x3fU);
    return {.number = static_cast<std::uint8_t>(number), .isGroup = isGroup};
}

struct Plain {
    static void read(Cursor& c, std::uint8_t& value) { value = c.reader.readUInt8(); }
    static void read(Cursor& c, std::int8_t& value) { value = c.reader.readInt8(); }
    static void read(Cursor& c, std::uint16_t& value) { value = c.reader.readUInt16(); }
    static void read(Cursor& c, std::uint32_t& value) { value = c.reader.readUInt32(); }
    static void read(Cursor& c, bool& value) { value = c.reader.readUInt8() != 0; }
    static void read(Cursor& c, AnswerLevel& value) { value = readLevel(c.reader); }
    static void read(Cursor& c, AnswerAddress& value) { value = readAddress(c.reader); }
    static void read(Cursor& c, DeviceVersion& value) {
        value.major = c.reader.readUInt8();
        value.minor = c.reader.readUInt8();
    }
    template <class T, std::size_t Count>
    static void read(Cursor& c, std::array<T, Count>& values) {
        for (T& value : values)
            read(c, value);
    }
    /// As many whole entries as are left.
    static void read(Cursor& c, std::vector<SequenceEntry>& entries) {
        constexpr std::size_t entrySize = 3;
        entries.resize(c.reader.bytesLeft() / entrySize);
        for (SequenceEntry& entry : entries) {
            entry.hour = c.reader.readUInt8();
            entry.minute = c.reader.readUInt8();
            entry.level = c.reader.readUInt8();
        }
    }
};

/// A byte that older firmware leaves out.
struct Optional {
    static void read(Cursor& c, std::uint8_t& value) {
        value = c.reader.bytesLeft() > 0 ? c.reader.readUInt8() : std::uint8_t{0};
    }
};

/// Years since 2000 in one byte.
struct Year {
    static void read(Cursor& c, std::uint16_t& value) {
        value = static_cast<std::uint16_t>(2000 + c.reader.readUInt8());
    }
};

/// One bit of the flags byte read last.
template <unsigned Number>
struct SameByteBit {
    template <class T>
    static void read(Cursor& c, T& value) {
        value = static_cast<T>((c.flags >> Number) & 1U);
    }
};

/// One bit of a new flags byte.
template <unsigned Number>
struct NewByteBit {
    template <class T>
    static void read(Cursor& c, T& value) {
        c.flags = c.reader.readUInt8();
        SameByteBit<Number>::read(c, value);
    }
};

// A field's value for the log.

std::string text(DeviceVersion v) {
    return fmt::format("{}.{}", v.major, v.minor);
}

std::string text(AnswerLevel level) {
    return fmt::format("{} ({:.4f})", level.raw, level.share);
}

std::string text(AnswerAddress address) {
    return address.isAll ? "all"
                         : fmt::format("{}{}", address.isGroup ? "group " : "", address.number);
}

std::string text(SequenceEntry entry) {
    return fmt::format("{:02}:{:02} {}", entry.hour, entry.minute, entry.level);
}

template <class T>
requires std::is_arithmetic_v<T> std::string text(T value) {
    return fmt::format("{}", value);
}

template <class List>
requires requires(const List& list) {
    list.begin();
}
std::string text(const List& list) {
    std::vector<std::string> texts;
    texts.reserve(list.size());
    for (const auto& value : list)
        texts.push_back(text(value));
    return fmt::format("[{}]", fmt::join(texts, ", "));
}

// The tables: one row for each field, in the order of the wire.

template <class Answer, class Value, class Codec>
struct Field {
    const char* label;
    Value Answer::*member;
    Codec codec; ///< stateless; picks the way of reading
};
template <class Codec = Plain, class Answer, class Value>
constexpr Field<Answer, Value, Codec> field(const char* label, Value Answer::*member) {
    return {label, member, Codec{}};
}

template <class Answer>
struct Table;

template <>
struct Table<AnswerVersion> {
    using A = AnswerVersion;
    static constexpr const char* name = "AnswerVersion";
    static constexpr std::tuple rows{field("version", &A::version), field("build", &A::build),
                                     field<Optional>("deviceType", &A::deviceType)};
};

template <>
struct Table<AnswerProductInfo> {
    using A = AnswerProductInfo;
    static constexpr const char* name = "AnswerProductInfo";
    static constexpr std::tuple rows{
        field("week", &A::week), field<Year>("year", &A::year), field("pcbVersion", &A::pcbVersion),
        field("assemblyVersion", &A::assemblyVersion), field("serialNumber", &A::serialNumber)};
};

template <>
struct Table<AnswerDebugInfo> {
    using A = AnswerDebugInfo;
    static constexpr const char* name = "AnswerDebugInfo";
    static constexpr std::tuple rows{field("status", &A::status),
                                     field("URef_dig", &A::URef_dig),
                                     field("UInA_dig", &A::UInA_dig),
                                     field("UInB_dig", &A::UInB_dig),
                                     field("URef_mV", &A::URef_mV),
                                     field("UInA_mV", &A::UInA_mV),
                                     field("UInB_mV", &A::UInB_mV),
                                     field("seconds", &A::seconds),
                                     field("minutes", &A::minutes),
                                     field("hours", &A::hours),
                                     field("day", &A::day),
                                     field("month", &A::month),
                                     field<Year>("year", &A::year),
                                     field("weekDay", &A::weekDay),
                                     field("isLeapYear", &A::isLeapYear),
                                     field("appTimeDiv_1_10V", &A::appTimeDiv_1_10V),
                                     field("appTaskModeTimeout", &A::appTaskModeTimeout),
                                     field("appFilteredAvg1", &A::appFilteredAvg1),
                                     field("appFilteredAvg2", &A::appFilteredAvg2),
                                     field("appDemoModeTimeout", &A::appDemoModeTimeout)};
};

template <>
struct Table<AnswerDebugTxRxDALI> {
    using A = AnswerDebugTxRxDALI;
    static constexpr const char* name = "AnswerDebugTxRxDALI";
    static constexpr std::tuple rows{field("status", &A::status), field("answer", &A::answer)};
};

template <>
struct Table<AnswerTime> {
    using A = AnswerTime;
    static constexpr const char* name = "AnswerTime";
    static constexpr std::tuple rows{field("hour", &A::hour), field("minute", &A::minute)};
};

template <>
struct Table<AnswerDeviceMode> {
    using A = AnswerDeviceMode;
    static constexpr const char* name = "AnswerDeviceMode";
    static constexpr std::tuple rows{field<NewByteBit<0>>("mode", &A::mode),
                                     field<SameByteBit<7>>("demoModeActive", &A::demoModeActive),
                                     field<SameByteBit<6>>("taskModeActive", &A::taskModeActive),
                                     field("levels", &A::levels)};
};

template <>
struct Table<AnswerDemoMode> : Table<AnswerDeviceMode> {
    static constexpr const char* name = "AnswerDemoMode";
};

template <>
struct Table<AnswerSequenceData> {
    using A = AnswerSequenceData;
    static constexpr const char* name = "AnswerSequenceData";
    static constexpr std::tuple rows{field("channel", &A::channel), field("seqData", &A::seqData)};
};

template <>
struct Table<AnswerSequenceDataInfo> {
    using A = AnswerSequenceDataInfo;
    static constexpr const char* name = "AnswerSequenceDataInfo";
    static constexpr std::tuple rows{field("channelCount", &A::channelCount),
                                     field("maxPoints", &A::maxPoints),
                                     field("sizeOfEntry", &A::sizeOfEntry)};
};

template <>
struct Table<AnswerDemoModeTransmitBuffer> {
    using A = AnswerDemoModeTransmitBuffer;
    static constexpr const char* name = "AnswerDemoModeTransmitBuffer";
    static constexpr std::tuple rows{field("freeBlocks", &A::freeBlocks)};
};

template <>
struct Table<AnswerTaskMode> {
    using A = AnswerTaskMode;
    static constexpr const char* name = "AnswerTaskMode";
    static constexpr std::tuple rows{field("minutes", &A::minutes), field("seconds", &A::seconds),
                                     field("levels", &A::levels), field("fadeTime", &A::fadeTime)};
};

template <>
struct Table<AnswerAnalogMode> {
    using A = AnswerAnalogMode;
    static constexpr const char* name = "AnswerAnalogMode";
    static constexpr std::tuple rows{field("fadeTime", &A::fadeTime),
                                     field("minLevel", &A::minLevel),
                                     field("maxLevel", &A::maxLevel),
                                     field<NewByteBit<7>>("logarithmicMode", &A::logarithmicMode),
                                     field("inOff_mV", &A::inOff_mV),
                                     field("inOn_mV", &A::inOn_mV),
                                     field("inMax_mV", &A::inMax_mV),
                                     field("in100perc_mV", &A::in100perc_mV)};
};

template <>
struct Table<AnswerDeviceSettings> {
    using A = AnswerDeviceSettings;
    static constexpr const char* name = "AnswerDeviceSettings";
    static constexpr std::tuple rows{field("addresses", &A::addresses),
                                     field("sequenceFadeTime", &A::sequenceFadeTime),
                                     field("minOnOutLevel", &A::minOnOutLevel)};
};

template <>
struct Table<AnswerRTC> {
    using A = AnswerRTC;
    static constexpr const char* name = "AnswerRTC";
    static constexpr std::tuple rows{field("second", &A::second), field("minute", &A::minute),
                                     field("hour", &A::hour),     field("day", &A::day),
                                     field("month", &A::month),   field<Year>("year", &A::year)};
};

template <>
struct Table<AnswerBufferInfo> {
    using A = AnswerBufferInfo;
    static constexpr const char* name = "AnswerBufferInfo";
    static constexpr std::tuple rows{field("bufferSize", &A::bufferSize),
                                     field("bufferFree", &A::bufferFree)};
};

template <>
struct Table<AnswerDaylightInfo> {
    using A = AnswerDaylightInfo;
    static constexpr const char* name = "AnswerDaylightInfo";
    static constexpr std::tuple rows{field<NewByteBit<7>>("enabled", &A::enabled),
                                     field<SameByteBit<6>>("summerTime", &A::summerTime),
                                     field("UTCOffset", &A::UTCOffset)};
};

/// What a table makes of an answer class: an object that decodes itself and lists its fields.
template <class Answer>
class Decoded final : public Answer {
public:
    Decoded(std::uint8_t id, std::vector<std::uint8_t> payload)
        : Answer(Table<Answer>::name, id, std::move(payload)) {
        Cursor cursor{YBufferReader(this->data())};
        std::apply([&](const auto&... row) { (row.codec.read(cursor, this->*row.member), ...); },
                   Table<Answer>::rows);
        if (cursor.reader.error())
            throw YMessageError(YMessageError::PacketLength{Table<Answer>::name,
                                                            static_cast<int>(this->data().size())});
    }

    std::vector<AnswerField> fields() const override {
        return std::apply(
            [this](const auto&... row) {
                return std::vector<AnswerField>{{row.label, text(this->*row.member)}...};
            },
            Table<Answer>::rows);
    }
};

using Payload = std::vector<std::uint8_t>;
using AnswerPtr = std::shared_ptr<const YAnswer>;

template <class Answer>
AnswerPtr make(std::uint8_t id, Payload payload) {
    return std::make_shared<const Decoded<Answer>>(id, std::move(payload));
}

/// Two classes share a number: the first one has payloads of exactly `Length` bytes.
template <std::size_t Length, class Exact, class Other>
AnswerPtr makeByLength(std::uint8_t id, Payload payload) {
    return payload.size() == Length ? make<Exact>(id, std::move(payload))
                                    : make<Other>(id, std::move(payload));
}

struct Kind {
    std::uint8_t id;
    AnswerPtr (*make)(std::uint8_t id, Payload payload);
};

constexpr Kind kinds[] = {
    {2, make<AnswerVersion>},
    {4, make<AnswerProductInfo>},
    {33, make<AnswerDebugInfo>},
    {35, make<AnswerDebugTxRxDALI>},
    {41, make<AnswerTime>},
    {43, make<AnswerDeviceMode>},
    {45, make<AnswerSequenceData>},
    {47, makeByLength<3, AnswerSequenceDataInfo, AnswerSequenceData>},
    {49, makeByLength<1, AnswerDemoModeTransmitBuffer, AnswerDemoMode>},
    {51, make<AnswerTaskMode>},
    {53, make<AnswerAnalogMode>},
    {55, make<AnswerDeviceSettings>},
    {71, make<AnswerRTC>},
    {73, make<AnswerBufferInfo>},
    {75, make<AnswerDaylightInfo>},
};

} // namespace

std::shared_ptr<const YAnswer> YAnswer::create(std::uint8_t id, std::vector<std::uint8_t> payload) {
    const auto* const kind = std::ranges::find(kinds, id, &Kind::id);
    if (kind == std::end(kinds))
        throw YMessageError(YMessageError::UnknownPacket{id});
    return kind->make(id, std::move(payload));
}
