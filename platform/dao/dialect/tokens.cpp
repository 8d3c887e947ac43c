#include "platform/dao/dialect/tokens.h"

#include "platform/errors.h"
#include "platform/text/numbers.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao::dialect {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Every byte of a character outside ASCII counts as a letter here; CheckName looks closer.
bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Signs that begin no longer one; most are such.
bool StandsAlone(char c) {
    return c == ',' || c == '(' || c == ')' || c == '.' || c == '+' || c == '*';
}

class Cutter {
  public:
    explicit Cutter(std::string_view statement) : text_(statement) {
        tokens_.reserve(16 + statement.size() / 8);
    }

    std::vector<Token> Run() {
        if (text_.find('\0') != std::string_view::npos) RefuseCharacter(QString(u'\0'));
        while (SkipBlanks()) Next();
        return std::move(tokens_);
    }

  private:
    char At(size_t i) const { return i < text_.size() ? text_[i] : '\0'; }

    bool SkipBlanks() {
        const size_t before = at_;
        while (at_ < text_.size() && (At(at_) == ' ' || (At(at_) >= '\t' && At(at_) <= '\r'))) ++at_;
        blank_ = at_ > before;
        return at_ < text_.size();
    }

    void Next() {
        const char c = At(at_);
        if (c == '\'' || c == '"')
            QuotedText(c);
        else if (c == '[')
            Bracket();
        else if (IsDigit(c) || (c == '.' && IsDigit(At(at_ + 1)) && !AfterName()))
            Number();
        else if (IsLetter(c))
            Word();
        else
            Sign();
    }

    /// In "M01.1" the point joins; it does not begin a number.
    bool AfterName() const {
        return !blank_ && !tokens_.empty() &&
               (tokens_.back().kind == TokenKind::Word || tokens_.back().kind == TokenKind::Bracketed);
    }

    void Push(TokenKind kind, size_t end) {
        tokens_.push_back({kind, text_.substr(at_, end - at_), blank_});
        at_ = end;
    }

    void QuotedText(char quote) {
        size_t end = at_ + 1;
        for (;;) {
            end = text_.find(quote, end);
            if (end == std::string_view::npos) throw Refusal{u"语法错误：文本缺少结束的引号。"_s};
            if (At(end + 1) != quote) break;
            end += 2;
        }
        Push(TokenKind::Text, end + 1);
    }

    void Bracket() {
        const size_t end = text_.find(']', at_);
        if (end == std::string_view::npos || end == at_ + 1)
            throw Refusal{u"语法错误：方括号中的名称不完整。"_s};
        Push(TokenKind::Bracketed, end + 1);
    }

    void Number() {
        size_t end = at_;
        const auto digits = [&] {
            while (IsDigit(At(end))) ++end;
        };
        digits();
        if (At(end) == '.') {
            ++end;
            digits();
        }
        if (Lower(At(end)) == 'e') {
            const size_t exponent = end + (At(end + 1) == '+' || At(end + 1) == '-' ? 2 : 1);
            if (IsDigit(At(exponent))) {
                end = exponent;
                digits();
            }
        }
        if (IsLetter(At(end))) RefuseCharacter(CharacterAt(end));
        RefuseOverflow(text_.substr(at_, end - at_));
        Push(TokenKind::Number, end);
    }

    /// The engine would take a number that is too large for infinity, and store that.
    static void RefuseOverflow(std::string_view number) {
        constexpr size_t kAlwaysFits = 300;  // digits without an exponent
        if (number.size() <= kAlwaysFits && number.find_first_of("eE") == std::string_view::npos) return;
        const auto written = QString::fromLatin1(number.data(), static_cast<qsizetype>(number.size()));
        try {
            text::Val(written);
        } catch (const RuntimeError&) {
            throw Refusal{u"溢出：“"_s + written + u"”。"_s};
        }
    }

    void Word() {
        size_t end = at_;
        bool ascii = true;
        while (IsLetter(At(end)) || IsDigit(At(end))) {
            ascii = ascii && static_cast<unsigned char>(At(end)) < 0x80;
            ++end;
        }
        if (!ascii) CheckName(text_.substr(at_, end - at_));
        Push(TokenKind::Word, end);
    }

    /// A name may be Chinese; full-width signs and blanks in it are slips of the hand.
    static void CheckName(std::string_view name) {
        const QString characters = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        for (const char32_t c : characters.toUcs4())
            if (!QChar::isLetterOrNumber(c) && c != U'_') RefuseCharacter(QString::fromUcs4(&c, 1));
    }

    void Sign() {
        if (StandsAlone(At(at_))) return Push(TokenKind::Sign, at_ + 1);
        const std::string_view rest = text_.substr(at_);
        if (rest[0] == ';') {
            ++at_;
            if (SkipBlanks()) throw Refusal{u"在 SQL 语句结尾之后找到字符。"_s};
            return;
        }
        if (rest.starts_with("--") || rest.starts_with("/*"))
            RefuseCharacter(QString::fromLatin1(rest.data(), qsizetype{2}));
        for (const std::string_view two : {"<=", ">=", "<>"})
            if (rest.starts_with(two)) return Push(TokenKind::Sign, at_ + 2);
        if (rest.starts_with("==") || rest.starts_with("<<") || rest.starts_with(">>"))
            RefuseCharacter(QString::fromLatin1(rest.data(), qsizetype{2}));
        if (std::string_view("=<>-/").find(rest[0]) == std::string_view::npos)
            RefuseCharacter(CharacterAt(at_));
        Push(TokenKind::Sign, at_ + 1);
    }

    QString CharacterAt(size_t i) const {
        const QString rest = QString::fromUtf8(text_.data() + i,
                                               static_cast<qsizetype>(std::min<size_t>(text_.size() - i, 8)));
        return rest.left(rest.front().isHighSurrogate() ? 2 : 1);
    }

    [[noreturn]] static void RefuseCharacter(const QString& character) {
        throw Refusal{u"语法错误：语句中有不能识别的字符“"_s + character + u"”。"_s};
    }

    std::string_view text_;
    size_t at_ = 0;
    bool blank_ = false;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view statement) {
    return Cutter(statement).Run();
}

std::string_view NameOf(const Token& token) {
    return token.kind == TokenKind::Bracketed ? token.text.substr(1, token.text.size() - 2) : token.text;
}

std::string ValueOf(const Token& token) {
    const char quote = token.text.front();
    const size_t end = token.text.size() - 1;
    if (token.text.find(quote, 1) == end) return std::string(token.text.substr(1, end - 1));
    std::string value;
    for (size_t i = 1; i + 1 < token.text.size(); ++i) {
        value += token.text[i];
        if (token.text[i] == quote) ++i;
    }
    return value;
}

std::string Quoted(std::string_view value) {
    std::string text = "'";
    for (const char c : value) {
        if (c == '\'') text += '\'';
        text += c;
    }
    text += '\'';
    return text;
}

}  // namespace dao::dialect
