#pragma once

/// While it lives, the first `allowed` flushes of files to the disk are made, and all others fail, as on a device that
/// breaks: a file that is written in place is then damaged.
///
/// Linking the library quorvel_failing_flush replaces fsync of the whole executable.
class CFailingFlush {
public:
    explicit CFailingFlush(int allowed);
    CFailingFlush(const CFailingFlush&) = delete;
    CFailingFlush& operator=(const CFailingFlush&) = delete;
    ~CFailingFlush();
};

/// As many flushes as the temporary file of a write in place needs.
inline constexpr int kUntilInPlace = 1;
