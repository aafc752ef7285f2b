#include "replay/round_codec.h"

#include <algorithm>

namespace {

enum Change : uint8_t {
    keysChanged = 1,
    buttonsChanged = 2,
    mouseMoved = 4,
    focusFlipped = 8,
    closeFlipped = 16,
    padsChanged = 32,
};
constexpr uint64_t changeKinds = 64;
constexpr int mouseButtonCount = GLFW_MOUSE_BUTTON_LAST + 1;
constexpr uint32_t padButtonsAll = (1u << (GLFW_PAD_BUTTON_LAST + 1)) - 1;
constexpr int64_t mousePlaceLimit = 1 << 20;  // far beyond any screen, within an int

uint8_t buttonBits(const RoundInput& input)
{
    uint8_t bits = 0;
    for (int b = 0; b < mouseButtonCount; ++b) bits |= uint8_t(input.mouseButtons[b]) << b;
    return bits;
}

}  // namespace

void RoundEncoder::add(const RoundInput& input, bool keepMousePosition)
{
    RoundInput next = input;
    if (!keepMousePosition) {
        next.mouseX = last.mouseX;
        next.mouseY = last.mouseY;
    }
    std::vector<int> keys;
    for (int key = 0; key <= GLFW_KEY_LAST; ++key)
        if (next.keys[key] != last.keys[key]) keys.push_back(key);
    const uint8_t buttons = buttonBits(next) ^ buttonBits(last);
    uint8_t seats = 0;
    for (int seat = 0; seat < GLFW_PAD_SEATS; ++seat)
        if (next.padButtons[seat] != last.padButtons[seat]) seats |= uint8_t(1u << seat);

    uint8_t changes = 0;
    if (!keys.empty()) changes |= keysChanged;
    if (buttons) changes |= buttonsChanged;
    if (next.mouseX != last.mouseX || next.mouseY != last.mouseY) changes |= mouseMoved;
    if (next.focused != last.focused) changes |= focusFlipped;
    if (next.closeRequested != last.closeRequested) changes |= closeFlipped;
    if (seats) changes |= padsChanged;

    roundCount += 1;
    if (changes == 0) {
        unchanged += 1;
        return;
    }
    writer.putVarint(uint64_t(unchanged) * changeKinds + changes);
    unchanged = 0;
    if (changes & keysChanged) {
        writer.putVarint(keys.size());
        int previous = 0;
        for (int key : keys) {
            writer.putVarint(static_cast<uint64_t>(key - previous));
            previous = key;
        }
    }
    if (changes & buttonsChanged) writer.putByte(buttons);
    if (changes & mouseMoved) {
        writer.putSigned(int64_t(next.mouseX) - last.mouseX);
        writer.putSigned(int64_t(next.mouseY) - last.mouseY);
    }
    if (changes & padsChanged) {
        writer.putByte(seats);
        for (int seat = 0; seat < GLFW_PAD_SEATS; ++seat)
            if (seats >> seat & 1) writer.putVarint(next.padButtons[seat] ^ last.padButtons[seat]);
    }
    last = next;
}

RoundDecoder::RoundDecoder(const std::vector<uint8_t>& bytes, uint32_t rounds)
    : bytes(bytes), reader(this->bytes.data(), this->bytes.size()), roundCount(rounds)
{
}

bool RoundDecoder::next(RoundInput& input)
{
    if (given == roundCount || damaged()) return false;
    if (!haveEntry && !reader.atEnd()) {
        const uint64_t head = reader.getBounded(uint64_t(roundCount - given) * changeKinds);
        gapLeft = head / changeKinds;
        pendingChanges = static_cast<uint8_t>(head % changeKinds);
        haveEntry = pendingChanges != 0;
        if (!haveEntry) {  // an entry that changes nothing is no entry
            damagedEntry = true;
            return false;
        }
    }
    if (haveEntry && gapLeft == 0) {
        haveEntry = false;
        if (!applyEntry(pendingChanges)) {
            damagedEntry = true;
            return false;
        }
    } else if (haveEntry) {
        gapLeft -= 1;
    }
    given += 1;
    input = current;
    return true;
}

void RoundDecoder::skip(uint64_t count)
{
    RoundInput scratch;
    while (count > 0 && given < roundCount && !damaged()) {
        const bool restUnchanged = !haveEntry && reader.atEnd();
        const uint64_t unchangedAhead = restUnchanged ? roundCount - given : haveEntry ? gapLeft : 0;
        const uint64_t passed = std::min(unchangedAhead, count);
        if (passed == 0) {
            next(scratch);
            count -= 1;
            continue;
        }
        if (haveEntry) gapLeft -= passed;
        given += static_cast<uint32_t>(passed);
        count -= passed;
    }
}

bool RoundDecoder::applyEntry(uint8_t changes)
{
    if (changes & keysChanged) {
        const uint64_t count = reader.getBounded(GLFW_KEY_LAST + 1);
        uint64_t key = 0;
        for (uint64_t i = 0; i < count && reader.ok(); ++i) {
            const uint64_t step = reader.getBounded(GLFW_KEY_LAST);
            key += step;
            if (key > GLFW_KEY_LAST || (i > 0 && step == 0)) return false;
            current.keys[key] = !current.keys[key];
        }
    }
    if (changes & buttonsChanged) {
        const uint8_t buttons = reader.getByte();
        for (int b = 0; b < mouseButtonCount; ++b)
            if (buttons >> b & 1) current.mouseButtons[b] = !current.mouseButtons[b];
    }
    if (changes & mouseMoved) {
        const int64_t x = current.mouseX + reader.getSigned();
        const int64_t y = current.mouseY + reader.getSigned();
        if (x < -mousePlaceLimit || x > mousePlaceLimit || y < -mousePlaceLimit || y > mousePlaceLimit)
            return false;
        current.mouseX = static_cast<int>(x);
        current.mouseY = static_cast<int>(y);
    }
    if (changes & focusFlipped) current.focused = !current.focused;
    if (changes & closeFlipped) current.closeRequested = !current.closeRequested;
    if (changes & padsChanged) {
        const uint8_t seats = reader.getByte();
        if (seats >> GLFW_PAD_SEATS) return false;
        for (int seat = 0; seat < GLFW_PAD_SEATS; ++seat)
            if (seats >> seat & 1) current.padButtons[seat] ^= uint32_t(reader.getBounded(padButtonsAll));
    }
    return reader.ok();
}

bool roundsAreWhole(const std::vector<uint8_t>& bytes, uint32_t rounds)
{
    RoundDecoder decoder(bytes, rounds);
    decoder.skip(rounds);
    return decoder.usedUp();
}
