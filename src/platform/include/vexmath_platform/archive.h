// SPDX-License-Identifier: MIT
// The archive through which geometry is stored: the portable default of a host type.

#ifndef VEXMATH_PLATFORM_ARCHIVE_H
#define VEXMATH_PLATFORM_ARCHIVE_H

#include <iosfwd>
#include <stdexcept>
#include <string>

#include <vexmath/export.h>

/// Thrown by an archive that cannot read or write a whole item. what() names the item.
class VEXMATH_API su_CArchiveError : public std::runtime_error {
public:
    explicit su_CArchiveError(std::string const &what);
    su_CArchiveError(su_CArchiveError const &other);
    su_CArchiveError &operator=(su_CArchiveError const &other);
    ~su_CArchiveError() override;
};

/// The archive type of older entry points. It has no operations. Every CArchive that is passed to
/// the library must be a su_CArchive.
class VEXMATH_API CArchive {
public:
    CArchive(CArchive const &) = delete;
    CArchive &operator=(CArchive const &) = delete;
    virtual ~CArchive();

protected:
    CArchive();
};

/// An archive over a caller's binary stream. The stream must outlive it. Items follow each other
/// without tags or padding, least significant byte first on every machine:
///
///     unsigned char   BYTE     1 byte
///     int             INT      4 bytes, two's complement
///     unsigned long   DWORD    4 bytes, also where the type has 8: the upper half is not written,
///     and read as 0 double          DOUBLE   8 bytes, IEEE 754; every bit is kept, also of NaN and
///     -0.0
///
/// Other types follow the overload rules of C++: char, bool and short are written as INT, float as
/// DOUBLE; unsigned int and long do not compile.
///
/// A short read or a failed write throws su_CArchiveError. A short read leaves its target
/// unchanged. A buffering stream may accept data that the disk refuses later: flush the stream and
/// check its state before you report the document as written.
class VEXMATH_API su_CArchive : public CArchive {
public:
    explicit su_CArchive(std::iostream &stream);
    ~su_CArchive() override;

    su_CArchive &operator<<(unsigned char value);
    su_CArchive &operator<<(int value);
    su_CArchive &operator<<(unsigned long value);
    su_CArchive &operator<<(double value);

    su_CArchive &operator>>(unsigned char &value);
    su_CArchive &operator>>(int &value);
    su_CArchive &operator>>(unsigned long &value);
    su_CArchive &operator>>(double &value);

private:
    std::iostream &stream_;
};

#endif
