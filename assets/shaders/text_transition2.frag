#version 110
// A hint's text, in dark ink on the light plate: it follows the box in a little later, flickering while it
// types in, and leaves a little earlier; gone by 515.
uniform sampler2D texture1;
uniform float time;
uniform float start;
uniform float end;
varying vec2 position;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    // beyond the span (the arrow may reach past it) counts as its edge
    float across = clamp((position.x - start) / max(end - start, 1.0), 0.0, 1.0);
    float ragged = noise(gl_FragCoord.xy / 4.0) * 0.1;
    float place = across + ragged;
    float coming = clamp((time - 15.0) / 45.0, 0.0, 1.0);
    float going = clamp((time - 455.0) / 60.0, 0.0, 1.0);
    float revealed = clamp((coming * 1.3 - place) / 0.2, 0.0, 1.0);
    float kept = clamp((place - (going * 1.3 - 0.2)) / 0.2, 0.0, 1.0);
    float flicker = mix(random(vec2(floor(across * 40.0), time)), 1.0, revealed);
    gl_FragColor = vec4(picture.rgb * 0.08, picture.a * revealed * kept * flicker);
}
