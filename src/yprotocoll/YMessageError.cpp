#include "yprotocoll/YMessageError.h"

using std::to_string;

namespace {

/// The texts of all kinds, in one place.
struct Describe {
    using E = YMessageError;

    std::string operator()(const E::PortWrongType& e) const {
        return "port " + e.name + " is no Aquelon device";
    }
    std::string operator()(const E::PortError& e) const {
        return "port error: " + e.text + (e.help.empty() ? "" : " (" + e.help + ")");
    }
    std::string operator()(const E::PortClosedError& e) const {
        return "port closed: " + e.reason->description();
    }
    std::string operator()(const E::DeviceVersion& e) const {
        return "unsupported device version " + to_string(e.major) + "." + to_string(e.minor);
    }
    std::string operator()(const E::UnknownPacket& e) const {
        return "unknown answer #" + to_string(e.number);
    }
    std::string operator()(const E::PacketLength& e) const {
        return e.name + ": wrong packet length: " + to_string(e.length);
    }
    std::string operator()(const E::AnswerUnexpected& e) const {
        return "got an unrequested answer #" + to_string(e.number);
    }
    std::string operator()(const E::AnswerWrongId& e) const {
        return "answer not matching: expected #" + to_string(e.expected) + " got #" +
               to_string(e.got);
    }
    std::string operator()(const E::AnswerTimeout& e) const {
        return "timeout " + to_string(e.count) + ": no answer for command #" +
               to_string(e.forCommand);
    }
    std::string operator()(const E::PortClosedSend&) const { return "cannot send: port is closed"; }
    std::string operator()(const E::PortClosedUnexpectedly&) const {
        return "port was closed unexpectedly";
    }
    std::string operator()(const E::PortRemoved&) const { return "port was removed"; }
    std::string operator()(const E::SequenceDataFormat&) const {
        return "unsupported sequence data format";
    }
    std::string operator()(const E::PacketStart&) const { return "packet must start with 'Y'"; }
    std::string operator()(const E::Checksum&) const { return "checksum doesn't match"; }
    std::string operator()(const E::BufferOverflow&) const { return "buffer overflow"; }
    std::string operator()(const E::OpenTimeout&) const {
        return "timeout while trying to open device";
    }
    std::string operator()(const E::AnswerTooManyTimeouts&) const {
        return "too many timeouts while trying to send";
    }
};

} // namespace

YMessageError YMessageError::portClosed(YMessageError reason) {
    return PortClosedError{std::make_shared<const YMessageError>(std::move(reason))};
}

std::string YMessageError::description() const {
    return std::visit(Describe{}, m_kind);
}
