#version 110
// Dismissal over time 0 to 70 on a cleared frame: the picture darkens and
// breaks into static that thins out; at 70 nothing is left.
uniform sampler2D texture1;
uniform float time;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    vec4 picture = texture2D(texture1, gl_TexCoord[0].st) * gl_Color;
    float progress = clamp(time / 70.0, 0.0, 1.0);
    float blotch = noise(gl_FragCoord.xy / 20.0 + vec2(0.0, time * 0.05)) * 0.6
                 + random(floor(gl_FragCoord.xy / 2.0)) * 0.4;
    float kept = clamp((blotch - progress * 1.3 + 0.3) / 0.3, 0.0, 1.0);
    float grain = random(floor(gl_FragCoord.xy / 2.0) + vec2(time * 5.0, time * 11.0));
    float grey = dot(picture.rgb, vec3(0.3, 0.59, 0.11));
    vec3 faded = mix(picture.rgb, vec3(grey), progress) * (1.0 - progress * 0.6);
    vec3 rgb = mix(vec3(grain * 0.5), faded, kept) * (1.0 - progress);
    gl_FragColor = vec4(rgb, 1.0);
}
