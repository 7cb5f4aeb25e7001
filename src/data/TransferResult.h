#pragma once

#include <QCoreApplication>
#include <QString>

#include <concepts>
#include <variant>

/// How a transfer between the document and the controller ended.
class TransferResult {
public:
    struct errorWrongChannelCount {
        int channels; ///< as the controller reports
        bool operator==(const errorWrongChannelCount&) const = default;
    };
    struct errorTooManyPoints {
        int points;  ///< in the sequence
        int maximum; ///< of the controller
        bool operator==(const errorTooManyPoints&) const = default;
    };
    struct ok {
        bool operator==(const ok&) const = default;
    };
    struct errorNoDevice {
        bool operator==(const errorNoDevice&) const = default;
    };
    struct errorInvalidData {
        bool operator==(const errorInvalidData&) const = default;
    };
    using Kind = std::variant<errorWrongChannelCount, errorTooManyPoints, ok, errorNoDevice,
                              errorInvalidData>;

    /// Implicit on purpose: `return TransferResult::ok{};`
    template <class T>
    requires std::constructible_from<Kind, T> TransferResult(T kind) : m_kind(kind) {}

    bool isOk() const { return is<ok>(); }
    template <class T>
    bool is() const {
        return std::holds_alternative<T>(m_kind);
    }
    /// The text for the person: one sentence, "success" for `ok`.
    QString description() const;

    bool operator==(const TransferResult&) const = default;

private:
    Kind m_kind;

    Q_DECLARE_TR_FUNCTIONS(TransferResult)
};
