// The two exceptions of the platform: DatabaseError for a statement that the database rejects, RuntimeError
// for any other failure. The text of both is ready to be shown, in Chinese or as the engine reports it.
#pragma once

#include <QString>

#include <exception>
#include <utility>

class PlatformError : public std::exception {
  public:
    explicit PlatformError(QString text) : text_(std::move(text)), narrow_(text_.toUtf8()) {}
    const QString& Text() const { return text_; }
    const char* what() const noexcept override { return narrow_.constData(); }

  private:
    QString text_;
    QByteArray narrow_;
};

/// For example an unknown field, a row out of range, a whole number too large, no value to format.
class RuntimeError : public PlatformError {
  public:
    using PlatformError::PlatformError;
};

/// A statement that failed. Statement() is the text that the caller passed.
class DatabaseError : public PlatformError {
  public:
    DatabaseError(const QString& text, QString statement, bool groupLost = false)
        : PlatformError(text), statement_(std::move(statement)), groupLost_(groupLost) {}
    const QString& Statement() const { return statement_; }
    /// True after a full disk, an I/O error or a failed commit: the whole commit group is rolled back,
    /// earlier statements of the command included.
    bool GroupLost() const { return groupLost_; }

  private:
    QString statement_;
    bool groupLost_;
};
