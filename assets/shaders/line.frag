#version 110
// The first, noisy layer of a wide bolt: the strip's colour crackles with
// grain that changes as the bolt fades (its alpha falls every frame).
varying vec2 position;

float random(vec2 p);
float noise(vec2 p);

void main()
{
    float fade = gl_Color.a;
    float crackle = noise(position * 0.35 + vec2(fade * 41.0, fade * 17.0));
    float grain = random(floor(gl_FragCoord.xy / 2.0) + vec2(fade * 97.0));
    float alpha = fade * clamp(0.3 + crackle * 1.2 + (grain - 0.5) * 0.6, 0.0, 1.0);
    vec3 rgb = mix(gl_Color.rgb, vec3(1.0), crackle * 0.3);
    gl_FragColor = vec4(rgb, alpha);
}
