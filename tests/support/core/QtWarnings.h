#pragma once

#include <QString>

/// Warnings of Qt fail the test in which they come. One that a test provokes is announced by an object of
/// this class; it fails in turn when the warning did not come while it lived.
class ExpectWarning
{
public:
    /// sPart: a part of the warning's text.
    explicit ExpectWarning(const QString& sPart);
    ~ExpectWarning();
    ExpectWarning(const ExpectWarning&) = delete;
    ExpectWarning& operator=(const ExpectWarning&) = delete;
};

/// Takes Qt's messages from now on: warnings and worse fail the running test.
void InstallWarningHandler();
void RemoveWarningHandler();
