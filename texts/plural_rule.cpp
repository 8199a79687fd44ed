// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/plural_rule.h"

#include <array>
#include <stdexcept>

namespace quode {
namespace {

constexpr int deepest = 100;  // a deeper expression is not a plural rule

// Evaluates a C expression with the variable n.
class Evaluation {
  public:
    Evaluation(std::string_view expression, unsigned long n) : rest_(expression), n_(n) {}

    unsigned long result() {
        const unsigned long value = choice();
        skipBlanks();
        if (!rest_.empty()) fail();
        return value;
    }

  private:
    struct Operator {
        std::string_view sign;
        int strength;
    };
    // Longer operators come before those that they start with.
    static constexpr std::array<Operator, 13> operators{{{"||", 1},
                                                         {"&&", 2},
                                                         {"==", 3},
                                                         {"!=", 3},
                                                         {"<=", 4},
                                                         {">=", 4},
                                                         {"<", 4},
                                                         {">", 4},
                                                         {"+", 5},
                                                         {"-", 5},
                                                         {"*", 6},
                                                         {"/", 6},
                                                         {"%", 6}}};

    [[noreturn]] static void fail() { throw std::runtime_error("its plural rule cannot be read"); }

    void skipBlanks() {
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
    }

    bool take(std::string_view sign) {
        skipBlanks();
        if (!rest_.starts_with(sign)) return false;
        rest_.remove_prefix(sign.size());
        return true;
    }

    unsigned long choice() {
        if (++depth_ > deepest) fail();
        const unsigned long condition = binary(1);
        unsigned long value = condition;
        if (take("?")) {
            const unsigned long yes = choice();
            if (!take(":")) fail();
            const unsigned long no = choice();
            value = condition != 0 ? yes : no;
        }
        --depth_;
        return value;
    }

    unsigned long binary(int weakest) {
        unsigned long left = unary();
        while (const Operator* next = takeOperator(weakest)) {
            left = computed(next->sign, left, binary(next->strength + 1));
        }
        return left;
    }

    const Operator* takeOperator(int weakest) {
        skipBlanks();
        for (const Operator& each : operators) {
            if (!rest_.starts_with(each.sign)) continue;
            if (each.strength < weakest) return nullptr;
            take(each.sign);
            return &each;
        }
        return nullptr;
    }

    static unsigned long computed(std::string_view sign, unsigned long a, unsigned long b) {
        if (sign == "||") return (a != 0 || b != 0) ? 1 : 0;
        if (sign == "&&") return (a != 0 && b != 0) ? 1 : 0;
        if (sign == "==") return a == b ? 1 : 0;
        if (sign == "!=") return a != b ? 1 : 0;
        if (sign == "<=") return a <= b ? 1 : 0;
        if (sign == ">=") return a >= b ? 1 : 0;
        if (sign == "<") return a < b ? 1 : 0;
        if (sign == ">") return a > b ? 1 : 0;
        if (sign == "+") return a + b;
        if (sign == "-") return a - b;
        if (sign == "*") return a * b;
        if (b == 0) return 0;
        return sign == "/" ? a / b : a % b;
    }

    unsigned long unary() {
        if (++depth_ > deepest) fail();
        const unsigned long value = take("!") ? (unary() == 0 ? 1 : 0) : operand();
        --depth_;
        return value;
    }

    unsigned long operand() {
        if (take("(")) {
            const unsigned long value = choice();
            if (!take(")")) fail();
            return value;
        }
        if (take("n")) return n_;
        skipBlanks();
        if (rest_.empty() || !isDigit(rest_.front())) fail();
        unsigned long value = 0;
        while (!rest_.empty() && isDigit(rest_.front())) {
            value = value * 10 + static_cast<unsigned long>(rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return value;
    }

    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

    std::string_view rest_;
    unsigned long n_;
    int depth_ = 0;
};

}  // namespace

PluralRule::PluralRule(std::string_view expression) : expression_(expression.substr(0, expression.find(';'))) {
    Evaluation(expression_, 1).result();
}

unsigned long PluralRule::form(unsigned long number) const {
    return Evaluation(expression_, number).result();
}

}  // namespace quode
