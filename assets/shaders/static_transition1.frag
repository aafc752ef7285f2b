#version 110
// One step of decay. The frame comes back every pass, so the picture is the
// state: each pass it loses colour and brightness, and a few pixels turn into
// fresh specks of static. After 150 passes only static is left. The grain is
// seeded by the pixel's own value, which changes every pass.
uniform sampler2D texture1;

float hash(vec2 p)
{
    vec3 q = fract(vec3(p.xyx) * 0.1031);
    q += dot(q, q.yzx + 33.33);
    return fract((q.x + q.y) * q.z);
}

void main()
{
    vec3 picture = texture2D(texture1, gl_TexCoord[0].st).rgb * gl_Color.rgb;
    vec2 seed = gl_FragCoord.xy + picture.rg * 311.7 + vec2(picture.b * 173.3);
    float grey = dot(picture, vec3(0.3, 0.59, 0.11));
    vec3 decayed = mix(picture, vec3(grey), 0.04) * 0.97;
    if (hash(seed) < 0.045)
        decayed = vec3(hash(seed + vec2(19.19, 7.7)) * 0.45);
    gl_FragColor = vec4(decayed, 1.0);
}
