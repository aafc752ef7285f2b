// Number helpers used everywhere.
#pragma once

float clampFloat(float x, float lo, float hi);
int clampInt(int x, int lo, int hi);

// The linear map of x from [a, b] to [c, d], not clamped.
float mapRange(float a, float b, float c, float d, float x);

float distanceSquared(float x1, float y1, float x2, float y2);
float distance(float x1, float y1, float x2, float y2);
// The angles of the rules are worked out in double precision and rounded to
// float: the C libraries' float functions differ in their last bit from one
// system to another, which would part the games of the Linux and the Windows
// build; rounded from double, they agree.
// atan2(y2 - y1, x2 - x1)
float angleTo(float x1, float y1, float x2, float y2);
float cosine(float angle);
float sine(float angle);
