#include "data/TransferResult.h"

using std::to_string;

namespace {

/// The texts of all cases, in one place.
struct Describe {
    using R = TransferResult;

    std::string operator()(R::errorWrongChannelCount r) const {
        return "Wrong number of channels: got " + to_string(r.channels) + ", expected 2 or 4.";
    }
    std::string operator()(R::errorTooManyPoints r) const {
        return "Too many time points in sequence: " + to_string(r.points) +
               ". This controller supports a maximmum of " + to_string(r.maximum) + " points only.";
    }
    std::string operator()(R::ok) const { return "success"; }
    std::string operator()(R::errorNoDevice) const { return "Controller not connected."; }
    std::string operator()(R::errorInvalidData) const {
        return "Got invalid or unknown data format from device.";
    }
};

} // namespace

std::string TransferResult::description() const {
    return std::visit(Describe{}, m_kind);
}
