#pragma once

#include <QString>

#include <exception>

/// The program's two private error numbers, as they reach the failure reporter.
namespace DbError {
/// A database operation failed and the operator has not been told yet.
constexpr quint32 Unreported = 0x800403E9;
/// The operator has been told; only the transaction must be undone.
constexpr quint32 Reported = 0x800403EA;
} // namespace DbError

/// Ends a unit of work with one of the private numbers (or, for others, the component's).
class DatabaseFailure : public std::exception
{
public:
    explicit DatabaseFailure(quint32 number) : m_number(number) {}
    [[nodiscard]] quint32 Number() const { return m_number; }
    [[nodiscard]] const char* what() const noexcept override { return "database failure"; }

private:
    quint32 m_number;
};

/// Number of the exception being handled: a DatabaseFailure's, a ComponentError's, else 0.
/// To be called in a catch block.
quint32 CurrentErrorNumber();
