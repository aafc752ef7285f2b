#version 110
// A hint's box and arrow: a ragged front sweeps from start to end to reveal
// it, and a second one sweeps it away again. time is the hint's age (1 to
// 549, the arrow 40 more); by 530 everything is gone.
uniform sampler2D texture1;
uniform float time;
uniform float start;
uniform float end;
varying vec2 position;

float noise(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    // beyond the span (the arrow may reach past it) counts as its edge
    float across = clamp((position.x - start) / max(end - start, 1.0), 0.0, 1.0);
    float ragged = noise(gl_FragCoord.xy / 6.0) * 0.15;
    float place = across + ragged;
    float coming = clamp((time - 1.0) / 45.0, 0.0, 1.0);
    float going = clamp((time - 470.0) / 60.0, 0.0, 1.0);
    float revealed = clamp((coming * 1.4 - place) / 0.2, 0.0, 1.0);
    float kept = clamp((place - (going * 1.4 - 0.2)) / 0.2, 0.0, 1.0);
    float fringe = revealed * (1.0 - revealed) * 4.0;
    vec3 rgb = picture.rgb + vec3(fringe * 0.5);
    gl_FragColor = vec4(rgb, picture.a * revealed * kept);
}
