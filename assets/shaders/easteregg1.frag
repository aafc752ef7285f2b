#version 110
// A title letter that glitches: rows slip sideways and grain creeps in, all
// scaled by amount (0 leaves the letter as it is).
uniform sampler2D texture1;
varying vec2 uv;
varying vec4 colour;
uniform float time;
uniform float amount;

float random(vec2 p);

void main()
{
    vec2 at = uv;
    float row = floor(gl_FragCoord.y / 5.0);
    float tick = floor(time / 4.0);
    float slip = random(vec2(row, tick)) - 0.5;
    float burst = step(0.7, random(vec2(tick, 3.0)));
    at.x += slip * 0.25 * amount * burst;
    vec4 letter = texture2D(texture1, at) * colour;
    float grain = random(floor(gl_FragCoord.xy / 2.0) + vec2(tick * 13.0));
    vec3 rgb = mix(letter.rgb, vec3(grain) * letter.a, amount * 0.3);
    gl_FragColor = vec4(rgb, letter.a);
}
