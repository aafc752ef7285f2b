#version 110
// One step of decay. The frame comes back every pass, so the picture is the
// state: each pass it loses colour and brightness, and a few pixels turn into
// fresh specks of static. After 150 passes only static is left. With no time
// input, the grain is seeded by the picture itself, which changes every pass.
uniform sampler2D texture1;

float hash(vec2 p)
{
    vec3 q = fract(vec3(p.xyx) * 0.1031);
    q += dot(q, q.yzx + 33.33);
    return fract((q.x + q.y) * q.z);
}

void main()
{
    vec2 uv = gl_TexCoord[0].st;
    vec3 picture = texture2D(texture1, uv).rgb * gl_Color.rgb;
    // The neighbours and a few fixed points of the picture seed the grain as
    // well, so that static spreads even over plain black. Their values only
    // feed the hash, so a read past the copied window does no harm.
    vec3 around = texture2D(texture1, uv + vec2(0.003, 0.0)).rgb
                + texture2D(texture1, uv - vec2(0.003, 0.0)).rgb * 2.0
                + texture2D(texture1, uv + vec2(0.0, 0.003)).rgb * 3.0
                + texture2D(texture1, uv - vec2(0.0, 0.003)).rgb * 5.0;
    vec3 far = texture2D(texture1, vec2(0.11, 0.37)).rgb
             + texture2D(texture1, vec2(0.29, 0.13)).rgb * 2.0
             + texture2D(texture1, vec2(0.41, 0.44)).rgb * 3.0
             + texture2D(texture1, vec2(0.23, 0.26)).rgb * 5.0;
    vec2 seed = gl_FragCoord.xy + picture.rg * 311.7 + vec2(picture.b * 173.3)
              + around.gb * 97.3 + vec2(around.r * 41.1) + far.rb * 53.9 + vec2(far.g * 29.3);
    float grey = dot(picture, vec3(0.3, 0.59, 0.11));
    vec3 decayed = mix(picture, vec3(grey), 0.03) * 0.98;
    if (hash(seed) < 0.025)
        decayed = vec3(hash(seed + vec2(19.19, 7.7)) * 0.45);
    gl_FragColor = vec4(decayed, 1.0);
}
