#pragma once

#include <string>

namespace core {

/// Turns an amount of naira into English words. The wording is the suite's own, with its spellings and blanks, because
/// printed price lists are compared with it.
class figToWrd {
public:
    [[nodiscard]] int useDelimiter() const noexcept { return useDelimiter_; }
    /// 0 ", ", 1 a blank, 2 "-", anything else nothing.
    void setUseDelimiter(int value) noexcept { useDelimiter_ = value; }
    [[nodiscard]] int useCase() const noexcept { return useCase_; }
    /// 0 as it stands, 1 upper case, anything else lower case.
    void setUseCase(int value) noexcept { useCase_ = value; }
    [[nodiscard]] int usePadding() const noexcept { return usePadding_; }
    /// 0 none, 1 "*" and 2 "***" on both sides, anything else an empty result.
    void setUsePadding(int value) noexcept { usePadding_ = value; }

    /// `value` in naira. Above 999999999999.99 the result is "***".
    [[nodiscard]] std::string Num2String(double value) const;

private:
    int useDelimiter_ = 0;
    int useCase_ = 0;
    int usePadding_ = 0;
};

}  // namespace core
