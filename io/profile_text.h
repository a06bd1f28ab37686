#pragma once

#include <memory>
#include <optional>
#include <string>

namespace kelvro {

/// The text of an INI file: sections in square brackets, key=value lines, comments from ';' or '#'.
/// Bytes are kept as they are, whatever their code page; names ignore the case of ASCII letters.
/// What it does not change (other sections, unknown keys, comments) survives.
class ProfileText {
  public:
    /// Reads any bytes; lines of no known form are left out.
    explicit ProfileText(const std::string& bytes = {});
    ProfileText(ProfileText&&) noexcept;
    ProfileText& operator=(ProfileText&&) noexcept;
    ~ProfileText();

    bool hasSection(const char* section) const;
    /// The value of a key without surrounding spaces and quotes; nothing where it is missing.
    std::optional<std::string> value(const char* section, const char* key) const;
    /// Replaces a value in its place, or appends section and key.
    void set(const char* section, const char* key, const std::string& value);

    std::string bytes() const;
    /// Were all lines of the text understood, so that bytes() still holds each of them?
    bool complete() const { return complete_; }

  private:
    struct Parser;
    std::unique_ptr<Parser> parser_;
    bool complete_ = true;
};

}  // namespace kelvro
