#version 110
// A title letter or the version text that comes alive at time 0: it unrolls
// from a wave over 60 frames and then breathes slowly.
uniform sampler2D texture1;
uniform float time;
varying vec2 position;

void main()
{
    float progress = clamp(time / 60.0, 0.0, 1.0);
    vec2 uv = gl_TexCoord[0].st;
    uv.y += sin(position.x * 0.08 + time * 0.2) * 0.08 * (1.0 - progress);
    vec4 picture = texture2D(texture1, uv) * gl_Color;
    float breath = 1.0 + 0.12 * sin(max(time, 0.0) * 0.05) * progress;
    gl_FragColor = vec4(picture.rgb * breath, picture.a * progress);
}
