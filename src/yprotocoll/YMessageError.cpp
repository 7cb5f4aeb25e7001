#include "yprotocoll/YMessageError.h"

using std::to_string;

namespace {

/// Marks a text for lupdate, which knows calls of this name. It is translated later.
constexpr const char* translate(const char* /*context*/, const char* source) {
    return source;
}

/// The texts of all kinds, in one place.
struct Describe {
    using E = YMessageError;

    Translation translation; ///< of a text within another

    MarkedText operator()(const E::PortWrongType& e) const {
        return {translate("YMessageError", "port %1 is no Aquelon device"), {e.name}};
    }
    MarkedText operator()(const E::PortError& e) const {
        if (e.help.empty())
            return {translate("YMessageError", "port error: %1"), {e.text.in(translation)}};
        return {translate("YMessageError", "port error: %1 (%2)"),
                {e.text.in(translation), e.help.in(translation)}};
    }
    MarkedText operator()(const E::PortClosedError& e) const {
        return {translate("YMessageError", "port closed: %1"),
                {e.reason->description(translation)}};
    }
    MarkedText operator()(const E::DeviceVersion& e) const {
        return {translate("YMessageError", "unsupported device version %1.%2"),
                {to_string(e.major), to_string(e.minor)}};
    }
    MarkedText operator()(const E::UnknownPacket& e) const {
        return {translate("YMessageError", "unknown answer #%1"), {to_string(e.number)}};
    }
    MarkedText operator()(const E::PacketLength& e) const {
        return {translate("YMessageError", "%1: wrong packet length: %2"),
                {e.name, to_string(e.length)}};
    }
    MarkedText operator()(const E::AnswerUnexpected& e) const {
        return {translate("YMessageError", "got an unrequested answer #%1"), {to_string(e.number)}};
    }
    MarkedText operator()(const E::AnswerWrongId& e) const {
        return {translate("YMessageError", "answer not matching: expected #%1 got #%2"),
                {to_string(e.expected), to_string(e.got)}};
    }
    MarkedText operator()(const E::AnswerTimeout& e) const {
        return {translate("YMessageError", "timeout %1: no answer for command #%2"),
                {to_string(e.count), to_string(e.forCommand)}};
    }
    MarkedText operator()(const E::PortClosedSend&) const {
        return MarkedText(translate("YMessageError", "cannot send: port is closed"));
    }
    MarkedText operator()(const E::PortClosedUnexpectedly&) const {
        return MarkedText(translate("YMessageError", "port was closed unexpectedly"));
    }
    MarkedText operator()(const E::PortRemoved&) const {
        return MarkedText(translate("YMessageError", "port was removed"));
    }
    MarkedText operator()(const E::SequenceDataFormat&) const {
        return MarkedText(translate("YMessageError", "unsupported sequence data format"));
    }
    MarkedText operator()(const E::PacketStart&) const {
        return MarkedText(translate("YMessageError", "packet must start with 'Y'"));
    }
    MarkedText operator()(const E::Checksum&) const {
        return MarkedText(translate("YMessageError", "checksum doesn't match"));
    }
    MarkedText operator()(const E::BufferOverflow&) const {
        return MarkedText(translate("YMessageError", "buffer overflow"));
    }
    MarkedText operator()(const E::OpenTimeout&) const {
        return MarkedText(translate("YMessageError", "timeout while trying to open device"));
    }
    MarkedText operator()(const E::AnswerTooManyTimeouts&) const {
        return MarkedText(translate("YMessageError", "too many timeouts while trying to send"));
    }
};

} // namespace

YMessageError YMessageError::portClosed(YMessageError reason) {
    return PortClosedError{std::make_shared<const YMessageError>(std::move(reason))};
}

std::string YMessageError::description(Translation translation) const {
    return std::visit(Describe{translation}, m_kind).in(translation);
}
