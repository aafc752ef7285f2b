#version 110
// Reveal over time 0 to 40: the picture grows in through blotches of noise,
// with a bright fringe of static along the front. From 40 on it is unchanged.
uniform sampler2D texture1;
uniform float time;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    float progress = clamp(time / 40.0, 0.0, 1.0);
    float blotch = noise(gl_FragCoord.xy / 24.0) * 0.7 + random(floor(gl_FragCoord.xy / 2.0)) * 0.3;
    float shown = clamp((progress * 1.3 - blotch) / 0.3, 0.0, 1.0);
    float fringe = shown * (1.0 - shown) * 4.0;
    float grain = random(floor(gl_FragCoord.xy / 2.0) + vec2(time * 7.0, time * 3.0));
    vec3 rgb = picture.rgb + vec3(grain * fringe * 0.6);
    gl_FragColor = vec4(rgb, picture.a * shown);
}
