#pragma once

#include "yprotocoll/MarkedText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

/// The one error type of the protocol and of the link to the controller.
///
/// A value: copyable, comparable, thrown by the bytes-only code (building and decoding packets)
/// and handed to delegates by the parser and the message controller. Each kind is a nested record;
/// `is<Kind>()` and `get<Kind>()` ask for one, `description()` is the text for the person and the
/// log.
class YMessageError {
public:
    // The names of the fields are part of the vocabulary and shown in the order of `description()`.
    struct PortWrongType {
        std::string name; ///< the port's name
        bool operator==(const PortWrongType&) const = default;
    };
    /// A command that a person can run, and what it is good for.
    struct PortRemedy {
        MarkedText what;
        std::string command;
        bool operator==(const PortRemedy&) const = default;
    };
    struct PortError {
        MarkedText text; ///< the system's own, but for a port that another program holds
        MarkedText help; ///< what is behind it, one sentence without a full stop; may be empty
        std::vector<PortRemedy> remedies = {}; ///< any one helps; may be empty
        bool operator==(const PortError&) const = default;
    };
    /// The link has been closed; `reason` says why and is never null.
    struct PortClosedError {
        std::shared_ptr<const YMessageError> reason;
        bool operator==(const PortClosedError& other) const { return *reason == *other.reason; }
    };
    struct DeviceVersion {
        std::uint8_t major;
        std::uint8_t minor;
        bool operator==(const DeviceVersion&) const = default;
    };
    struct UnknownPacket {
        std::uint8_t number;
        bool operator==(const UnknownPacket&) const = default;
    };
    struct PacketLength {
        std::string name; ///< class name of the message
        int length;       ///< bytes
        bool operator==(const PacketLength&) const = default;
    };
    struct AnswerUnexpected {
        std::uint8_t number;
        bool operator==(const AnswerUnexpected&) const = default;
    };
    struct AnswerWrongId {
        std::uint8_t expected;
        std::uint8_t got;
        bool operator==(const AnswerWrongId&) const = default;
    };
    struct AnswerTimeout {
        int count; ///< consecutive time-outs, from 1
        std::uint8_t forCommand;
        bool operator==(const AnswerTimeout&) const = default;
    };
    /// What the kinds without fields have in common.
    struct Plain {
        bool operator==(const Plain&) const = default;
    };
    struct PortClosedSend : Plain {};
    struct PortClosedUnexpectedly : Plain {};
    struct PortRemoved : Plain {};
    struct SequenceDataFormat : Plain {};
    struct PacketStart : Plain {};
    struct Checksum : Plain {};
    struct BufferOverflow : Plain {};
    struct OpenTimeout : Plain {};
    struct AnswerTooManyTimeouts : Plain {};

    using Kind =
        std::variant<PortWrongType, PortError, PortClosedError, DeviceVersion, UnknownPacket,
                     PacketLength, AnswerUnexpected, AnswerWrongId, AnswerTimeout, PortClosedSend,
                     PortClosedUnexpectedly, PortRemoved, SequenceDataFormat, PacketStart, Checksum,
                     BufferOverflow, OpenTimeout, AnswerTooManyTimeouts>;

    /// Implicit on purpose: `gotError(YMessageError::PacketStart{})`.
    YMessageError(Kind kind) : m_kind(std::move(kind)) {}
    template <class T>
    requires(std::is_constructible_v<Kind, T>) YMessageError(T kind) : m_kind(std::move(kind)) {}

    /// A `PortClosedError` for the given reason.
    static YMessageError portClosed(YMessageError reason);

    template <class T>
    bool is() const {
        return std::holds_alternative<T>(m_kind);
    }
    /// The record of the kind, or null when the error is of another kind.
    template <class T>
    const T* get() const {
        return std::get_if<T>(&m_kind);
    }

    /// One line without a full stop, in English for the log, translated for alerts.
    std::string description(Translation translation = untranslated) const;

    bool operator==(const YMessageError&) const = default;

private:
    Kind m_kind;
};
