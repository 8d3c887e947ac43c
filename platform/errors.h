// The two kinds of failure that the platform tells: a statement that the database refuses, and what fails for
// another reason. Both carry their text in Chinese or in the engine's own words, ready to be shown.
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

/// A field that is not there, a row out of range, a whole number too large, nothing to format.
class RuntimeError : public PlatformError {
  public:
    using PlatformError::PlatformError;
};

/// A failing statement. Statement() is the text as the caller gave it.
class DatabaseError : public PlatformError {
  public:
    DatabaseError(const QString& text, QString statement, bool groupLost = false)
        : PlatformError(text), statement_(std::move(statement)), groupLost_(groupLost) {}
    const QString& Statement() const { return statement_; }
    /// True after a full disk, an I/O error or a failed commit: the command's earlier statements are gone
    /// too.
    bool GroupLost() const { return groupLost_; }

  private:
    QString statement_;
    bool groupLost_;
};
