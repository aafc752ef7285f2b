#version 110
// A title letter, drawn additively: nothing while time is below 0, then it
// burns in through noise within 30 frames with a flash, and stands.
uniform sampler2D texture1;
uniform float time;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    vec4 letter = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    float progress = clamp(time / 30.0, 0.0, 1.0);
    float blotch = noise(gl_FragCoord.xy / 6.0) * 0.8 + random(gl_FragCoord.xy) * 0.2;
    float shown = clamp((progress * 1.5 - blotch) / 0.5, 0.0, 1.0);
    float flash = 1.0 + 1.5 * progress * (1.0 - progress) * 4.0 * (1.0 - progress);
    float strength = shown * letter.a;
    gl_FragColor = vec4(letter.rgb * strength * flash, strength);
}
