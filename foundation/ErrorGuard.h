#pragma once
#include <QString>
#include <exception>
#include <functional>

// The error convention of every procedure of substance: run the body, and when anything is
// thrown write exactly one ERROR line naming object and procedure (with the current step as
// "Procedure.Step") and return normally. A failure while reporting is swallowed.
class Step
{
public:
    void operator()(const QString& name) { m_name = name; }
    const QString& Name() const { return m_name; }

private:
    QString m_name;
};

// The readable description of an exception: KernelError's text, std::exception::what(), or
// "Unknown error".
QString DescribeException(std::exception_ptr error);

// Runs body; returns true when it finished, false when it threw (after the ERROR line).
bool Guarded(const QString& object, const QString& procedure, const std::function<void(Step&)>& body);
bool Guarded(const QString& object, const QString& procedure, const std::function<void()>& body);

// As Guarded, but hands the failure to onError (procedure with step, description) in place
// of the ERROR line: for the few routines that report by a box before the log exists.
bool GuardedWith(const QString& procedure, const std::function<void(Step&)>& body,
                 const std::function<void(const QString& step, const QString& description)>& onError);
