// What is wrong with a line, for those who take it apart.
#pragma once

#include "GameOverrideCause.h"

#include <string>
#include <utility>

struct SOverrideError
{
    EOverrideCause cause = EOverrideCause::None;
    // A sentence without its point.
    std::string message;

    // False, so that a reader can end with it.
    [[nodiscard]] bool Set(EOverrideCause why, std::string text)
    {
        cause = why;
        message = std::move(text);
        return false;
    }
};
