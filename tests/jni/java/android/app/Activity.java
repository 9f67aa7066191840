package android.app;

/** Stands in for the platform's activity: the native side only passes it on. */
public class Activity {
    public final String name;

    public Activity(String name) { this.name = name; }
}
