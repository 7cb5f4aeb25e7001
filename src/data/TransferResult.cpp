#include "data/TransferResult.h"

namespace {

/// The texts of all cases, in one place.
struct Describe {
    using R = TransferResult;

    QString operator()(R::errorWrongChannelCount r) const {
        return TransferResult::tr("Wrong number of channels: got %1, expected 2 or 4.")
            .arg(r.channels);
    }
    QString operator()(R::errorTooManyPoints r) const {
        return TransferResult::tr(
                   "Too many time points in sequence: %1. This controller supports a maximmum of "
                   "%2 points only.")
            .arg(r.points)
            .arg(r.maximum);
    }
    QString operator()(R::ok) const { return TransferResult::tr("success"); }
    QString operator()(R::errorNoDevice) const {
        return TransferResult::tr("Controller not connected.");
    }
    QString operator()(R::errorInvalidData) const {
        return TransferResult::tr("Got invalid or unknown data format from device.");
    }
};

} // namespace

QString TransferResult::description() const {
    return std::visit(Describe{}, m_kind);
}
